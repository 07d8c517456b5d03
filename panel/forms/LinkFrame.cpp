#include "panel/forms/LinkFrame.h"

#include "platform/Product.h"
#include "ui_LinkFrame.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr const char* helpFile = "ZLT42R-485.HLP";

void showText(ElidingLabel& label, const QString& text) {
    if (label.text() != text)
        label.setText(text);
}

}  // namespace

LinkFrame::LinkFrame(Handlers& handlers, const Services& services, PanelSession& session,
                     const std::function<void()>& close, QWidget* parent)
    : QFrame(parent), m_ui(std::make_unique<Ui::LinkFrame>()) {
    m_ui->setupUi(this);
    addDeviceIds(*m_ui->SelectedDeviceID);
    m_ui->portRemark->hide();
    connect(m_ui->SelectedDeviceID, &QComboBox::activated, this, [&, this](int index) {
        const QString chosen = m_ui->SelectedDeviceID->itemText(index);
        handlers.run([&] { session.switchDevice(wireText(chosen)); });
    });
    handlers.onClick(*m_ui->About, [&](bool) { services.gate.message(aboutText); });
    handlers.onClick(*m_ui->Help, [&](bool) { services.help.openContents(helpFile); });
    handlers.onClick(*m_ui->Command2, [close](bool) { close(); });
}

LinkFrame::~LinkFrame() = default;

void LinkFrame::showState(const PanelState& state) {
    showLink(state.link);
    m_ui->ID->setEnabled(state.live);
    m_ui->Version->setEnabled(state.live);
    if (m_ui->SelectedDeviceID->currentText() != shownText(state.deviceShown))
        m_ui->SelectedDeviceID->showText(state.deviceShown);
    showText(*m_ui->ID, shownText(state.id));
    showText(*m_ui->Version, shownText(state.version));
    showText(*m_ui->BaudText, shownText(state.baudRate));
    showText(*m_ui->portRemark, fromUtf8(state.portRemark));
    m_ui->portRemark->setVisible(!state.portRemark.empty());
}

void LinkFrame::showLink(LinkState link) {
    const auto show = [this](const QString& words, const QColor& colour) {
        if (m_ui->ComStatusDisplay->text() == words)
            return;
        m_ui->ComStatusDisplay->setText(words);
        m_ui->ComStatusDisplay->setColour(colour);
    };
    switch (link) {
        case LinkState::opening:
            break;  // as the form says it
        case LinkState::answering:
            show(QStringLiteral("Communication OK"), QColor(0, 255, 0));
            break;
        case LinkState::silent:
            show(QStringLiteral("No Communication"), QColor(255, 0, 0));
            break;
        case LinkState::noPort:
            show(QStringLiteral("Invalid Port"), QColor(128, 128, 128));
            break;
    }
}

}  // namespace zlt
