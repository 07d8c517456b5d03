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
        return files.read(name).whole().value_or("none");
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
        {front + "1\r\n1\r\n1\r\n1\r\n7\r\n",
         "Line 12 (HCA) should be plain text, but the file ends before it."},
        {std::string("0\r\n\0\xFF", 5),
         "Line 2 (device ID) should be plain text, but holds \"?\xC3\xBF\"."}};
    open();
    for (const auto& [bytes, fault] : table) {
        files.writeWhole("bad.par", bytes);
        load("bad.par", "File bad.par is not a parameter file.  " + fault);
        EXPECT_EQ(shown("pendingCount"), "Nothing to write") << fault;
    }
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
