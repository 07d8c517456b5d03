#pragma once

#include <QTimer>
#include <chrono>
#include <memory>

#include "terminal/BusListing.h"
#include "terminal/forms/BusModel.h"
#include "widgets/SideScreen.h"

namespace Ui {
class BusForm;
}

namespace zlt {

/// The bus monitor: the exchanges of all screens as they are made, in a window beside the panel.
/// Reads what the links have put down anyway; sends nothing.
class BusForm : public SideScreen {
    Q_OBJECT

 public:
    BusForm(const Services& world, QWidget& owner, std::shared_ptr<WindowPlaces> places);
    ~BusForm() override;

 protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    std::chrono::milliseconds refreshTimer_Timer();
    void Filter_Changed();
    void Pause_Click();
    void Copy_Click();
    void Save_Click();

    void connectHandlers();
    void setUpTable();
    /// Lists what is new.
    bool refresh();
    void showCount();
    void tell(const QString& sentence);
    /// The selected rows, or all where none is.
    [[nodiscard]] std::vector<BusRecord> chosen() const;

    std::unique_ptr<Ui::BusForm> m_ui;
    BusListing m_listing;
    BusModel m_model;
    QTimer m_refreshTimer{this};
};

}  // namespace zlt
