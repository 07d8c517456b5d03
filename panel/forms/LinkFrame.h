#pragma once

#include <QFrame>
#include <functional>
#include <memory>

#include "panel/PanelSession.h"
#include "panel/PanelView.h"
#include "widgets/Handlers.h"

namespace Ui {
class LinkFrame;
}

namespace zlt {

/// The strip at the top: the state of the link, the device that is worked, what it is.
class LinkFrame : public QFrame {
    Q_OBJECT

 public:
    /// `close` closes the panel. `services` and `session` are used as long as the controls are
    /// worked.
    LinkFrame(Handlers& handlers, const Services& services, PanelSession& session,
              const std::function<void()>& close, QWidget* parent);
    ~LinkFrame() override;

    void showState(const PanelState& state);

 private:
    void showLink(LinkState link);

    std::unique_ptr<Ui::LinkFrame> m_ui;
};

}  // namespace zlt
