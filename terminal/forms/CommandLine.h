#pragma once

#include <QLineEdit>
#include <string>

namespace zlt {

/// The entry line of a terminal. Enter acts here, and only here; a key held down enters once.
class CommandLine : public QLineEdit {
    Q_OBJECT

 public:
    explicit CommandLine(QWidget* parent = nullptr) : QLineEdit(parent) {}

    /// The command as it goes on the wire. Throws NotLatin1 and ControlCharacter.
    std::string command() const;

 signals:
    void entered();   ///< Enter
    void recalled();  ///< F1
    void older();     ///< Up
    void newer();     ///< Down

 protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace zlt
