#include "app/PortNote.h"

#include "ui_SelectComForm.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

void showLine(QLabel& line, const std::string& text) {
    const QString shown = fromUtf8(text);
    if (line.text() != shown)
        line.setText(shown);
    line.setVisible(!shown.isEmpty());
}

}  // namespace

void showPortReport(Ui::SelectComForm& ui, const PortReport& report) {
    const bool nothingThere = report.obstacle == Obstacle::nothingThere;
    showLine(*ui.portDevice, nothingThere
                                 ? std::string()
                                 : ui.combo->currentText().toStdString() + " is " + report.device);
    showLine(*ui.portProblem, report.problem);
    const QString command = fromUtf8(report.command);
    if (ui.portCommand->text() != command) {
        ui.portCommand->setText(command);
        ui.portCommand->setCursorPosition(0);
    }
    ui.portCommandRow->setVisible(!command.isEmpty());
}

}  // namespace zlt
