#pragma once

#include <QTimer>
#include <memory>

#include "link/DeviceNotes.h"
#include "link/DeviceSearch.h"
#include "link/Exchange.h"
#include "link/Settings.h"
#include "link/serial/PortDirectory.h"
#include "link/serial/PortMemory.h"
#include "programs/forms/ProgramDraft.h"
#include "widgets/Screen.h"
#include "widgets/SideScreen.h"

namespace Ui {
class SelectComForm;
}

namespace zlt {

/// The start-up screen: port, baud rate and device ID, and the way to the control panel.
/// Lives for the whole run.
class SelectComForm : public Screen {
    Q_OBJECT

 public:
    /// `directory` outlives the screen.
    SelectComForm(const Services& services, PortDirectory& directory);
    ~SelectComForm() override;

    /// Fills the boxes and applies the settings file.
    void Form_Load();

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    void Command25_Click();
    void ProgramEdit_Click();
    void SearchZLT_Click();
    void SearchAllZLT_Click();
    void Close_Click();
    void openUnsaved_Click();
    void dropUnsaved_Click();
    void copyCommand_Click();
    void usePending_Click();
    void portTimer_Timer();
    /// What was said of the last connection is said no more: these are other settings.
    void boxes_Changed();

    void closeScreen() override { Close_Click(); }
    void connectHandlers();
    void connectToController(bool startInProgram);
    void fillBoxes();
    /// The three texts as typed. Throws NotLatin1 and ControlCharacter for one that no file can
    /// hold.
    [[nodiscard]] Settings typedSettings() const;
    void saveSettings(const Settings& settings);
    void showPort();
    /// Says whether a program text is there that an earlier run has kept.
    void showUnsaved();
    /// Keeps what is not saved of the program; where that cannot be, the operator says whether to
    /// end the program all the same.
    bool mayClose();
    /// Grows with the lines below the boxes, so that they never squeeze what is above.
    void makeRoom();

    /// Keeps who answered to a search.
    void noteAnswers(const DeviceSearch& search);
    /// Says what is pending, of the device that the panel was on last if that has any.
    void showPending();

    PortDirectory& m_directory;
    PortMemory m_memory;
    ProgramDraft m_draft;
    LineFault m_lineFault = LineFault::none;  ///< of the last connection, if it failed
    std::shared_ptr<DeviceNotes> m_notes = std::make_shared<DeviceNotes>();
    std::shared_ptr<WindowPlaces> m_places = std::make_shared<WindowPlaces>();
    Connection m_lastDevice;  ///< that the panel was on
    std::unique_ptr<Ui::SelectComForm> m_ui;
    QTimer m_portTimer{this};
};

}  // namespace zlt
