#pragma once

#include <memory>
#include <string_view>

#include "panel/forms/TrendPlot.h"
#include "widgets/SideScreen.h"

namespace Ui {
class TrendForm;
}

namespace zlt {

/// What the poll has read over time, in a window beside the panel. It asks the controller nothing.
class TrendForm : public SideScreen {
    Q_OBJECT

 public:
    /// `record` is what the panel has read, and outlives the window. `now` is the clock that the
    /// record's times are of.
    TrendForm(const Services& world, QWidget& owner, std::shared_ptr<WindowPlaces> places,
              const TrendRecord& record, TrendPlot::Clock now = std::chrono::steady_clock::now);
    ~TrendForm() override;

    /// Says which device is read (Latin-1).
    void showDevice(std::string_view address);

    [[nodiscard]] QSize sizeHint() const override { return {900, 530}; }

 private:
    void connectControls();
    void trendSpan_Changed(int index);
    void trendSaveCsv_Click();
    void trendSavePng_Click();
    void trendCopy_Click();
    /// Asks for a name and writes what `content` returns then; says in one line what came of it.
    void save(const char* filter, const char* suffix, const std::function<std::string()>& content);
    void showView();
    /// Nothing to say: how the window is worked.
    void say(const QString& sentence);

    const TrendRecord& m_record;
    std::unique_ptr<Ui::TrendForm> m_ui;
    QString m_hint;
};

}  // namespace zlt
