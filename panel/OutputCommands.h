#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "link/PanelLink.h"

namespace zlt {

/// What the output commands read from the screen at the moment of a click, and put back.
class OutputsView {
 public:
    virtual ~OutputsView() = default;

    /// The number behind "SYNC=" that the option group stands for: 1 equal, 2 less than,
    /// 3 greater than; nothing when none is selected.
    virtual std::optional<int> syncCondition() const = 0;
    /// The sync position as typed, UTF-8.
    virtual std::string syncPosition() const = 0;
    virtual void pointToSyncPosition() = 0;
    virtual void markSyncEnabled(bool enabled) = 0;
    /// Whether the output's lamp is lit.
    virtual bool outputShown() const = 0;
};

/// The operator's direct commands to outputs, driver, latch, sync output and S-curve.
class OutputCommands {
 public:
    OutputCommands(const Services& services, PanelLink& link, OutputsView& view)
        : m_services(services), m_link(link), m_view(view) {}

    /// Digital output 1 to 3.
    void DOSet_Click(int output);
    void d1_Click();
    /// `checked` is the mark as the operator's click left it, here and below.
    void EnableStat_Click(bool checked);
    void EnableLatch_Click();
    /// Throws ConversionError when the position is no number.
    void SyncEnable_Click(bool checked);
    void Scurve_Click(bool checked);
    /// The S-curve buttons; `motionShown` is what `Stat` shows.
    void setScurve(bool on, std::string_view motionShown);

 private:
    /// Asks for a present state and switches to the other one. The controller's word counts,
    /// never what the screen shows; whatever is not 0 counts as on.
    void toggle(std::string_view query, std::string_view setting);

    const Services& m_services;
    PanelLink& m_link;
    OutputsView& m_view;
};

}  // namespace zlt
