#pragma once

#include <QLineEdit>
#include <string>

#include "widgets/Fields.h"

namespace zlt {

/// The entry line of a terminal. Enter acts here, and only here; a key held down enters once.
class CommandLine : public QLineEdit {
    Q_OBJECT

 public:
    explicit CommandLine(QWidget* parent = nullptr);

    /// The command as it goes on the wire. Throws NotLatin1 and ControlCharacter.
    [[nodiscard]] std::string command() const;
    /// Takes the command out of the line, which is painted at once: what follows blocks.
    void take();

 signals:
    void entered();         ///< Enter
    void recalled();        ///< F1
    void older();           ///< Up
    void newer();           ///< Down
    void paged(int pages);  ///< PageUp, -1, and PageDown, 1

 protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// The address beside an entry line.
class AddressField : public NumberField {
    Q_OBJECT

 public:
    using NumberField::NumberField;

    /// The two digits typed, as deviceAddress(). Throws BadAddress, the cursor in the field.
    std::string address();
};

}  // namespace zlt
