#pragma once

#include <QFrame>
#include <initializer_list>
#include <string>

#include "link/DeviceNotes.h"
#include "link/serial/PortObstacle.h"

namespace Ui {
class SelectComForm;
}

class QLabel;
class QPushButton;

namespace zlt {

/// Puts a port's report into the lines below the start-up screen's boxes, and beside it what else
/// is to be said of the port, a sentence each; empty ones are left out.
void showPortReport(Ui::SelectComForm& ui, const PortReport& report,
                    std::initializer_list<std::string> remarks);

/// The line that says what a controller has accepted for its next power-up, with a button for those
/// who have powered it up. Hidden while there is nothing to say; changes nothing by itself.
class PendingNote : public QFrame {
    Q_OBJECT

 public:
    explicit PendingNote(QWidget* parent = nullptr);

    void showNote(const Connection& device, const DeviceNote& note);

    QPushButton& button() { return *m_button; }
    /// How the controller is reached after its power cycle.
    [[nodiscard]] const Connection& connection() const { return m_connection; }

 private:
    QLabel* m_text;
    QPushButton* m_button;
    Connection m_connection;
};

}  // namespace zlt
