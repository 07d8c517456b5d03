#include <QClipboard>
#include <QGuiApplication>
#include <QScreen>

#include "SetupWorld.h"

namespace zlt::test {
namespace {

const FileChoice saveDialog{"Save ZLT-R-NX Parameters As", "Parameter Files (*.par)|*.par", ""};
const FileChoice openDialog{"Open ZLT-R-NX Parameter File",
                            "ZLT-R-NX Parameter Files (*.par)|*.par", "*.par"};

class ParameterFilesTest : public SetupWorld {
 protected:
    /// Answers the dialog behind a button and meets the message, where there is one.
    void save(const std::optional<std::string>& name, const std::string& message) {
        gate.expectSaveDialog(saveDialog, name);
        if (!message.empty())
            gate.expectMessageWith(message);
        click(*form, "SaveParameters");
    }
    void load(const std::optional<std::string>& name, const std::string& message = {}) {
        gate.expectOpenDialog(openDialog, name);
        if (!message.empty())
            gate.expectMessage(message);
        click(*form, "OpenParameters");
    }
    std::string saved(const std::string& name) {
        save(name, "Save Parameters to file done!");
        return files.read(pathFromUtf8(name)).whole().value_or("none");
    }
};

TEST_F(ParameterFilesTest, HoldTwelveLinesByPosition) {
    open(316);
    type("HCA", " -7 \xC2\xB5");
    type("baudCombo", "14400");
    click(*form, "sapol2");
    const std::string bytes = saved("m\xC3\xBC ller.par");
    EXPECT_EQ(bytes,
              "21\r\n42\r\n16\r\n800\r\n300\r\n14400\r\n1\r\n0\r\n1\r\n0\r\n\r\n -7 \xB5\r\n");
    open();
    type("DOBOOT", "\xC2\xB5x");
    load("m\xC3\xBC ller.par");
    EXPECT_EQ(shown("pendingCount"), "7 values not written yet");
    EXPECT_EQ(saved("a.par"), bytes);

    files.writeWhole("other.par", " 63\n42\r2\r\n100\n200\n38400\n0\n1\n1\n0\n\nx y\n13th");
    load("other.par");
    EXPECT_EQ(bus.takeCommands(), Commands{}) << "a file sends nothing";
    EXPECT_EQ(down(), (Commands{"CURR=100", "CURI=200", "MS=2", "POL=31", "DN", "DL=1", "SLOAD=1",
                                "HCA=x y", "LCA=", "DOBOOT=\xB5x", "DB", "RT=0"}));
}

TEST_F(ParameterFilesTest, LeaveTheScreenAsItWasWhenDamaged) {
    const std::string front = "0\r\n05\r\n1\r\n100\r\n100\r\n9600\r\n";
    const std::pair<std::string, std::string> table[] = {
        {"none\r\n05\r\n", "Line 1 (polarity) should be a whole number, but holds \"none\"."},
        {front + "0.4\r\n", "Line 7 (name in replies) should be 0 or 1, but holds \"0.4\"."},
        {front + "1\r\n2\r\n", "Line 8 (limit disable) should be 0 or 1, but holds \"2\"."},
        {front + "1\r\n1\r\n1\r\n",
         "Line 10 (auto run 1) should be 0 or 1, but the file ends before it."},
        {front + "1\n1\n1\n1\n7\tx\n",
         "Line 11 (LCA) should be plain text, but it holds a control character, which no command "
         "can carry: \"7\tx\"."},
        {front + "1\n1\n1\n1\n7\n" + std::string(32'768, '8'),
         "Line 12 (HCA) should be plain text, but it is longer than 32767 characters: \"" +
             std::string(80, '8') + "\xE2\x80\xA6\"."},
        {std::string("0\r\n\0\xFF", 5),
         "Line 2 (device ID) should be plain text, but it holds a control character, which no "
         "command can carry: \"?\xC3\xBF\"."}};
    open();
    for (const auto& [bytes, fault] : table) {
        files.writeWhole("bad.par", bytes);
        load("bad.par", "File bad.par is not a parameter file.  " + fault);
        EXPECT_EQ(shown("pendingCount"), "Nothing to write") << fault;
    }
}

TEST_F(ParameterFilesTest, MayComeFromAnEditor) {
    const std::string flags = " 1\n01\n+1\n00\n";
    const std::tuple<std::string, const char*, const char*> table[] = {
        {"\xEF\xBB\xBF"
         "5\n42\n16\n800\n300\n38400\n" +
             flags + "10\n20\n",
         "10", "20"},
        {"5\n42\n16\n800\n300\n38400\n" + flags + "10\n", "10", ""},
        {"5\n42\n16\n800\n300\n38400\n" + flags, "", ""},
        {"5\n42\n16\n800\n300\n38400\n" + flags + std::string(32'767, '8'), nullptr, ""}};
    open();
    for (const auto& [bytes, lca, hca] : table) {
        files.writeWhole("edited.par", bytes);
        load("edited.par");
        EXPECT_EQ(shown("LCA"), lca ? lca : std::string(32'767, '8'));
        EXPECT_EQ(shown("HCA"), hca);
        EXPECT_EQ(shown("DisableLimit") + shown("Autostart") + shown("Autostart1"), "ononoff");
    }
}

TEST_F(ParameterFilesTest, AreHeldAgainstScreenAndControllerBeforeAnythingIsSent) {
    open();
    type("DOBOOT", "7");
    files.writeWhole("next.par", "21\n43\n16\n900\n300\n38400\n1\n1\n1\n1\n10\n20\n");
    form->move(0, form->screen()->availableGeometry().bottom() - 500);
    load("next.par");
    EXPECT_TRUE(form->screen()->availableGeometry().contains(form->frameGeometry()));
    const auto& grid = control<CompareGrid>(*form, "compareGrid");
    EXPECT_GE(grid.height(), grid.sizeHint().height()) << "all rows where the screen has room";
    EXPECT_EQ(bus.takeCommands(), Commands{});
    EXPECT_EQ(control<QGroupBox>(*form, "deviceGroup").title().toStdString(), "Controller 01");
    type("RunCurrentSelect", "1000");
    EXPECT_EQ(compared(),
              "Device ID\t43\t42\t42\t43\n"
              "Run current\t1000\t800\t800\t900\n"
              "Polarity\tPOL 21\tPOL 5\tPOL 5\tPOL 21\n"
              "Polarity SA Err\tset\tclear\tclear\tset\n"
              "DO Boot\t7\t6\t6\t\n");
    click(*form, "copyCompare");
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              control<CompareGrid>(*form, "compareGrid").text());
}

TEST_F(ParameterFilesTest, AreNotSavedUnaskedWithValuesThatWereNeverRead) {
    bus.replies["POL"] = bus.replies["DL"] = "?";
    gate.expectMessageWith("Not read from the controller: polarity, limit disable.");
    open();
    const std::string question =
        "Not read from the controller: polarity, limit disable.  Save what the screen shows there "
        "all the same?";
    gate.expectQuestion("Save", question, false);
    click(*form, "SaveParameters");
    gate.expectQuestion("Save", question, true);
    EXPECT_EQ(saved("a.par").substr(0, 7), "0\r\n42\r\n");
    bus.replies["POL"] = bus.replies["DL"] = "0";
    bus.replies["DOBOOT"] = "\t";
    gate.expectMessageWith("Not read from the controller: DO Boot.");
    click(*form, "UploadPar");
    saved("b.par");  // in no file, so nothing is asked
}

TEST_F(ParameterFilesTest, TakeWhateverTheDialogsAnswer) {
    const std::tuple<std::optional<std::string>, const char*, const char*> table[] = {
        {std::nullopt, "", ""},
        {"", "", "No Parameter File Name!"},
        {"a*b", "", ""},
        {"no/x.par", "File no/x.par does not exist!", "could not be saved in no/x.par: "},
        {".", "File . could not be read: it is a folder, not a file.",
         "could not be saved in .: "}};
    open();
    for (const auto& [name, loading, saving] : table) {
        load(name, loading);
        save(name, saving);
    }
    EXPECT_TRUE(std::filesystem::is_empty("."));
}

}  // namespace
}  // namespace zlt::test
