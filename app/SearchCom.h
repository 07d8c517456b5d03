#pragma once

#include <QTimer>
#include <memory>

#include "link/DeviceSearch.h"
#include "widgets/Screen.h"

namespace Ui {
class SearchCom;
}

namespace zlt {

/// The progress of a search for devices, on a port of its own. Closes itself when the search
/// is over; what it found is asked for then.
class SearchCom : public Screen, private SearchView {
    Q_OBJECT

 public:
    SearchCom(const Services& world, SearchMode mode, QWidget* parent);
    ~SearchCom() override;

    /// Starts the search; its steps are made once the screen is shown.
    void Form_Load();

    [[nodiscard]] const DeviceSearch& search() const { return m_search; }
    /// No port at all could be opened, which the operator has been told.
    [[nodiscard]] bool noPort() const { return m_noPort; }

 private:
    std::chrono::milliseconds StatusTimer_Timer();
    void Cancel_Click() { m_search.cancel(); }

    void closeScreen() override { Cancel_Click(); }
    void showText(std::string_view text) override;
    void showProgress(int value, int maximum) override;
    void showResults(std::string_view results) override;

    std::unique_ptr<Ui::SearchCom> m_ui;
    std::unique_ptr<Port> MSComm1;
    DeviceSearch m_search;
    bool m_noPort = false;
    QTimer m_statusTimer{this};
};

}  // namespace zlt
