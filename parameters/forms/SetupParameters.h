#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "parameters/Comparison.h"
#include "parameters/ParameterFile.h"
#include "parameters/ParameterTransfer.h"
#include "parameters/ParameterView.h"
#include "parameters/forms/ParameterControl.h"
#include "widgets/Screen.h"

namespace Ui {
class SetupParameters;
}

namespace zlt {

/// The screen of the controller's parameter set: reads and writes it as a whole, stores it to
/// flash, keeps it in files. Has the port to itself while it is open.
class SetupParameters : public LinkedScreen, private ParameterView {
    Q_OBJECT

 public:
    /// `handOver` is the calling screen's link; its port is closed by now.
    SetupParameters(const Services& world, const LinkHandOver& handOver, QWidget* parent);
    ~SetupParameters() override;

    /// Opens the port and reads the set, before the screen is shown: its messages stand over
    /// the calling screen. Part of the caller's handler; passes an end of the program on.
    void Form_Load();

 private:
    void UploadPar_Click();
    void DownloadPar_Click();
    void SaveParameters_Click();
    void OpenParameters_Click();
    void SetSN_Click();
    void Compare_Click();
    void copyCompare_Click();
    void Close_Click();

    void closeScreen() override { Close_Click(); }
    void connectHandlers();
    void fillBoxes();
    /// Runs a transfer under the busy cursor, with what it does told on the screen.
    void work(void (ParameterTransfer::*transfer)());
    [[nodiscard]] bool isWorthComparing() const;
    ParameterControl& control(ParameterField field);
    /// What the controls hold, UTF-8, whatever they hold.
    [[nodiscard]] ParameterValues shownValues() const;
    void compareAll();
    QString reason(ParameterField field, Standing standing);
    void showNotes(const ParameterValues& shown);
    void showCounts(const Comparison& comparison);
    void showTable(const ParameterValues& shown);
    /// Opens and closes the table below the groups.
    void setComparing(bool comparing);
    /// As high as what it shows, and on its screen.
    void fitHeight();

    [[nodiscard]] ParameterValues values() const override;
    void showField(ParameterField field, const std::string& text) override;
    void disable(ParameterField field) override;
    void showActivity(Activity activity) override;
    void showDeviceCopy(const DeviceCopy& copy) override;
    void showOutcome(std::string_view line) override;
    void showOpened(const ParameterValues& values) override;

    std::unique_ptr<Ui::SetupParameters> m_ui;
    ParameterTransfer m_transfer;
    ParameterFiles m_files;
    std::vector<std::unique_ptr<ParameterControl>> m_controls;  ///< in the order of ParameterField
    std::optional<ParameterValues> m_opened;  ///< of the file that was opened last
    bool m_worthComparing = false;
};

}  // namespace zlt
