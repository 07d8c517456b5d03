#pragma once

#include <memory>
#include <string_view>

#include "panel/forms/TrendPlot.h"
#include "widgets/Handlers.h"
#include "widgets/SideWindow.h"

namespace Ui {
class TrendForm;
}

namespace zlt {

/// What the poll has read over time, in a window beside the panel. It asks the controller nothing.
class TrendForm : public SideWindow {
    Q_OBJECT

 public:
    /// `handlers` and `services` are the panel's, `record` is what it has read; all outlive the
    /// window. `now` is the clock that the record's times are of.
    TrendForm(Screen* panel, Handlers& handlers, const Services& services,
              const TrendRecord& record, std::shared_ptr<WindowPlaces> places,
              TrendPlot::Clock now = std::chrono::steady_clock::now);
    ~TrendForm() override;

    /// Says which device is read (Latin-1).
    void showDevice(std::string_view address);

    [[nodiscard]] QSize sizeHint() const override { return {900, 530}; }

 private:
    void connectControls(Handlers& handlers);
    void trendSpan_Changed(int index);
    void trendSaveCsv_Click();
    void trendSavePng_Click();
    void trendCopy_Click();
    /// Asks for a name and writes what `content` returns then; says in one line what came of it.
    void save(const char* filter, const char* suffix, const std::function<std::string()>& content);
    void showView();
    /// Nothing to say: how the window is worked.
    void say(const QString& sentence);

    const Services& m_services;
    const TrendRecord& m_record;
    std::unique_ptr<Ui::TrendForm> m_ui;
    QString m_hint;
};

}  // namespace zlt
