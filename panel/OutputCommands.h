#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "link/PanelLink.h"
#include "panel/StatusWord.h"

namespace zlt {

/// When the synchronisation output is on, by the number behind "SYNC=".
enum class SyncCondition { equal = 1, lessThan = 2, greaterThan = 3 };

/// What the output commands read from the screen at the moment of a click, and put back.
class OutputsView {
 public:
    virtual ~OutputsView() = default;

    /// The selected condition; nothing when none is.
    virtual std::optional<SyncCondition> syncCondition() const = 0;
    /// The sync position as typed, UTF-8.
    virtual std::string syncPosition() const = 0;
    /// Puts the cursor into the sync position, whose text cannot be used.
    virtual void pointToSyncPosition() = 0;
    /// Sets the mark of "Enable" without a click of the operator's.
    virtual void markSyncEnabled(bool enabled) = 0;
    /// The same with the latch's mark.
    virtual void markLatch(bool on) = 0;
    /// Whether the output's lamp is lit.
    virtual bool outputShown() const = 0;
};

/// The operator's direct commands to outputs, driver, latch, sync output and S-curve.
class OutputCommands {
 public:
    /// `endDemo` ends the demo moves, which switching the driver off must.
    OutputCommands(const Services& services, PanelLink& link, OutputsView& view,
                   std::function<void()> endDemo)
        : m_services(services), m_link(link), m_view(view), m_endDemo(std::move(endDemo)) {}

    /// Switches digital output 1 to 3 over, by the controller's word.
    void DOSet_Click(int output);
    /// Switches the output over, by what its lamp shows.
    void d1_Click();
    /// `checked` is the mark as the operator's click left it, here and below. Asks first, and
    /// sends only where the controller says otherwise.
    void EnableStat_Click(bool checked);
    /// Switches the latch over, by the controller's word; its mark shows what was sent.
    void EnableLatch_Click();
    /// Sends condition, position and the switch. Throws ConversionError when the position is no
    /// number: nothing has been sent then, the mark is put back; but switching off is sent.
    void SyncEnable_Click(bool checked);
    /// Sends the mark, moving or not; the reply does not matter.
    void Scurve_Click(bool checked);
    /// The S-curve buttons; `motionShown` is what `Stat` shows. A moving axis and a refusal are
    /// told in a message. Whether it is set now.
    bool setScurve(bool on, MotionState motionShown);

 private:
    /// Asks for a present state and switches to the other one. The controller's word counts,
    /// never what the screen shows; whatever is not 0 counts as on. Returns what was sent.
    bool toggle(std::string_view query, std::string_view setting);

    const Services& m_services;
    PanelLink& m_link;
    OutputsView& m_view;
    std::function<void()> m_endDemo;
};

}  // namespace zlt
