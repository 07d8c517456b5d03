#pragma once

#include <QFrame>
#include <memory>

#include "panel/PanelView.h"

namespace Ui {
class LinkFrame;
}

namespace zlt {

class ChoiceBox;

/// The strip at the top: the state of the link, the device that is worked, what it is.
class LinkFrame : public QFrame {
    Q_OBJECT

 public:
    explicit LinkFrame(QWidget* parent = nullptr);
    ~LinkFrame() override;

    void showLinkText(std::string_view text);
    void showLinkState(std::string_view text, Rgb colour);
    void showLive(bool live);
    void showSelectedDevice(std::string_view deviceId);
    void showIdentity(std::string_view id);
    void showVersion(std::string_view version);
    void showBaudRate(std::string_view baudRate);
    void showPortRemark(std::string_view remark);

    const Ui::LinkFrame& controls() const { return *m_ui; }

 private:
    std::unique_ptr<Ui::LinkFrame> m_ui;
};

}  // namespace zlt
