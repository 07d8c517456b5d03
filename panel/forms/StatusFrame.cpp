#include "panel/forms/StatusFrame.h"

#include "panel/StatusWord.h"
#include "programs/forms/ProgramStateReadOut.h"
#include "ui_StatusFrame.h"

namespace zlt {
namespace {

ReadOut::Meaning meaningOfMotion(std::string_view text) {
    if (text == idleText)
        return ReadOut::Meaning::atRest;
    return text.ends_with("ERR") ? ReadOut::Meaning::atFault : ReadOut::Meaning::underWay;
}

}  // namespace

StatusFrame::StatusFrame(QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::StatusFrame>()) {
    m_ui->setupUi(this);
    // What the operator looks for first, also from beside the machine.
    QFont large = m_ui->Pos->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    m_ui->Pos->setFont(large);
}

StatusFrame::~StatusFrame() = default;

ReadOut& StatusFrame::readOut(Value value) const {
    switch (value) {
        case Value::current:
            return *m_ui->Current;
        case Value::position:
            return *m_ui->Pos;
        case Value::encoder:
            return *m_ui->EncPos;
        case Value::motion:
            return *m_ui->Stat;
        case Value::moveMode:
            return *m_ui->MoveMode;
        case Value::programLine:
            return *m_ui->ProgIndex;
        case Value::programState:
            break;
    }
    return *m_ui->ProgStatus;
}

void StatusFrame::showValue(Value value, std::string_view text) {
    if (value == Value::motion)
        readOut(value).showState(text, meaningOfMotion(text));
    else if (value == Value::programState)
        showProgramState(readOut(value), text);
    else
        readOut(value).showReply(text);
}

void StatusFrame::showIndicator(Indicator indicator, bool lit) {
    if (indicator == Indicator::negativeLimit)
        m_ui->NegLim->setLit(lit);
    else if (indicator == Indicator::positiveLimit)
        m_ui->PosLim->setLit(lit);
    else if (indicator == Indicator::home)
        m_ui->Home->setLit(lit);
}

void StatusFrame::showLive(bool live) {
    for (ReadOut* value : findChildren<ReadOut*>())
        value->setLive(live);
    for (Lamp* lamp : findChildren<Lamp*>())
        lamp->setLive(live);
}

}  // namespace zlt
