// Twenty controllers, one file: from the box to the bus, each with an ID of its own, by the real
// screens against the simulator with its power cycles.

#include <QComboBox>
#include <fstream>

#include "parameters/forms/CompareGrid.h"
#include "support/StartUpWorld.h"

namespace zlt::test {
namespace {

constexpr int controllers = 20;

/// Controllers at 21 to 40, out of the way until each is given the 01 that new ones come with.
QStringList boxFull() {
    QStringList options{QStringLiteral("--unpaced")};
    for (int id = 1; id <= controllers; ++id)
        options << QStringLiteral("--controller") << QString::number(20 + id);
    return options;
}

class CommissioningTest : public StartUpWorld {
 protected:
    CommissioningTest() : StartUpWorld(boxFull()) {
        std::ofstream("twenty.par") << "9\n01\n4\n800\n300\n115200\n0\n1\n0\n0\n5\n600\n";
    }
    void say(const std::string& line) { simulator.say(line.c_str()); }
    void expectNote(QWidget& panel, const char* name, bool visible) {
        EXPECT_EQ(control<QWidget>(panel, name).isVisible(), visible) << name;
    }
    static std::string compared(QWidget& setup) {
        const std::string text = control<CompareGrid>(setup, "compareGrid").text().toStdString();
        return text.substr(text.find('\n') + 1);
    }
    void openFile(QWidget& setup) {
        gate.expectOpenDialog(
            {"Open ZLT-R-NX Parameter File", "ZLT-R-NX Parameter Files (*.par)|*.par", "*.par"},
            "twenty.par");
        click(setup, "OpenParameters");
    }
    void downWithNewId(QWidget& setup, const std::string& id) {
        control<QComboBox>(setup, "DeviceIDCombo").setEditText(QString::fromStdString(id));
        gate.expectQuestion("Device ID", "Are you sure you want change Device ID to " + id + "?",
                            true);
        gate.expectMessageWith("Device ID Set.");
        gate.expectQuestion("Device ID", "Are you sure you want change the baudrate?", true);
        gate.expectMessageWith("Baudrate change done.");
        gate.expectMessage("Download Done!");
        click(setup, "DownloadPar");
        EXPECT_EQ(textOf(setup, "outcome"), "") << "nothing refused";
    }
    void store(QWidget& setup) {
        gate.expectQuestion("Store to Flash", "Are you sure you want to save parameters to flash?",
                            true);
        gate.expectMessage("Store to Flash done!");
        click(setup, "SetSN");
    }
    void work(QWidget& panel, const std::function<void(QWidget& setup)>& act) {
        clickAndWork(panel, "Setup", [&](QWidget& setup) {
            act(setup);
            click(setup, "Close");
        });
    }
    /// A controller as it comes: its file, its ID, flash.
    void setUp(const std::string& id) {
        connect([&](QWidget& panel) {
            expectNote(panel, "pendingNote", false);
            work(panel, [&](QWidget& setup) {
                openFile(setup);
                downWithNewId(setup, id);
            });
            expectNote(panel, "notStored", true);
            work(panel, [&](QWidget& setup) { store(setup); });
            expectNote(panel, "notStored", false);
            EXPECT_EQ(textOf(panel, "pendingNote"),
                      "from the next power-up: ID " + id + ", 115200");
            click(panel, "Command2");
        });
    }
    /// The same controller after its power cycle.
    void verify(const std::string& id) {
        connect([&](QWidget& panel) {
            expectNote(panel, "pendingNote", false);
            work(panel, [&](QWidget& setup) {
                openFile(setup);
                EXPECT_EQ(compared(setup), "Device ID\t01\t" + id + "\t" + id + "\t01\n");
                EXPECT_EQ(textOf(setup, "storeNote"), "");
            });
            click(panel, "Command2");
        });
    }
};

TEST_F(CommissioningTest, SetsUpTwentyControllersWithOneFile) {
    for (int number = 1; number <= controllers; ++number) {
        const std::string id = std::to_string(50 + number);
        SCOPED_TRACE(id);
        say("id " + std::to_string(20 + number) + " 1");
        setUp(id);
        EXPECT_EQ(textOf(startUp, "pendingText"),
                  "Device 01 on COM1, from the next power-up: ID " + id + ", 115200");
        EXPECT_EQ(textOf(startUp, "DeviceIDCombo"), "01") << "nothing changes it by itself";
        say("power 1");
        click(startUp, "usePending");
        verify(id);
        EXPECT_FALSE(control<QWidget>(startUp, "usePending").isVisible());
        choose(startUp, "DeviceIDCombo", "01");
        choose(startUp, "baudCom", "9600");
    }
}

}  // namespace
}  // namespace zlt::test
