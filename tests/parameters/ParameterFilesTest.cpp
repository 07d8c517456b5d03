#include <fstream>
#include <sstream>

#include "SetupWorld.h"

namespace zlt::test {
namespace {

const FileChoice saveDialog{"Save ZLT-R-NX Parameters As", "Parameter Files (*.par)|*.par", ""};
const FileChoice openDialog{"Open ZLT-R-NX Parameter File",
                            "ZLT-R-NX Parameter Files (*.par)|*.par", "*.par"};

class ParameterFilesTest : public SetupWorld {
 protected:
    void save(const std::string& name) {
        gate.expectSaveDialog(saveDialog, name);
        gate.expectMessage("Save Parameters to file done!");
        click(*form, "SaveParameters");
    }
    void openFile(const std::string& name) {
        gate.expectOpenDialog(openDialog, name);
        click(*form, "OpenParameters");
    }
    static void write(const std::string& name, const std::string& bytes) {
        std::ofstream(name, std::ios::binary) << bytes;
    }
    static std::string bytesOf(const std::string& name) {
        std::ostringstream bytes;
        bytes << std::ifstream(name, std::ios::binary).rdbuf();
        return bytes.str();
    }
};

TEST_F(ParameterFilesTest, SaveTwelveLinesByPosition) {
    bus.replies["DN"] = "ZLD05";
    bus.replies["POL"] = bus.replies["DL"] = bus.replies["SLOAD"] = "0";
    openRead();
    save("set.par");
    const std::string example =
        "0\r\n05\r\n16\r\n800\r\n300\r\n38400\r\n1\r\n0\r\n0\r\n0\r\n10\r\n20\r\n";
    EXPECT_EQ(bytesOf("set.par"), example);
    openFile("set.par");
    save("again.par");
    EXPECT_EQ(bytesOf("again.par"), example);
    EXPECT_EQ(bus.takeCommands(), Commands{}) << "a file sends nothing";
}

TEST_F(ParameterFilesTest, OpenWhatWasSavedOnAnotherScreen) {
    openRead(316);
    type("LCA", "");
    type("HCA", " -7 \xC2\xB5");
    type("Microstep", "8");
    type("baudCombo", "14400");
    type("DOBOOT", "3");
    click(*form, "sapol2");
    click(*form, "Autostart");
    save("m\xC3\xBC ller.par");
    const std::string saved = bytesOf("m\xC3\xBC ller.par");
    EXPECT_EQ(saved,
              "21\r\n42\r\n8\r\n800\r\n300\r\n14400\r\n1\r\n0\r\n0\r\n0\r\n\r\n -7 \xB5\r\n");

    openRead();
    openFile("m\xC3\xBC ller.par");
    EXPECT_EQ(shown("LCA"), "");
    EXPECT_EQ(shown("HCA"), " -7 \xC2\xB5");
    EXPECT_EQ(shown("Microstep"), "8");
    EXPECT_EQ(shown("DOBOOT"), "6") << "no part of the file";
    EXPECT_FALSE(checked("Autostart1"));
    EXPECT_TRUE(checked("sapol2"));
    EXPECT_EQ(mark("HCA"), ChangeMark::State::differs);
    EXPECT_EQ(shown("pendingCount"), "8 values not written yet");
    save("again.par");
    EXPECT_EQ(bytesOf("again.par"), saved);
}

TEST_F(ParameterFilesTest, ReadAnyLineEndAndNothingBehindTheTwelfthLine) {
    openRead();
    for (const char* end : {"\n", "\r", "\r\n"}) {
        std::string bytes;
        for (const char* line :
             {" 63", "07", "2", "100", "200", "9600", "0", "1", "1", "0", "", "x y", "thirteenth"})
            bytes += std::string(line) + end;
        write("other.par", bytes);
        openFile("other.par");
        EXPECT_EQ(shown("HCA"), "x y");
        EXPECT_EQ(shown("LCA"), "");
        EXPECT_TRUE(checked("sapol2") && checked("DisableLimit") && checked("Autostart"));
        EXPECT_FALSE(checked("RT") || checked("Autostart1"));
    }
}

TEST_F(ParameterFilesTest, LeaveTheScreenAsItWasForADamagedFile) {
    const std::string front = "0\r\n05\r\n1\r\n100\r\n100\r\n9600\r\n";
    struct Row {
        std::string bytes, fault;
    };
    const Row table[] = {
        {"", "Line 1 (polarity) should be a whole number, but the file ends before it."},
        {"none\r\n05\r\n", "Line 1 (polarity) should be a whole number, but holds \"none\"."},
        {front, "Line 7 (name in replies) should be 0 or 1, but the file ends before it."},
        {front + "yes\r\n", "Line 7 (name in replies) should be 0 or 1, but holds \"yes\"."},
        {front + "1\r\n2\r\n", "Line 8 (limit disable) should be 0 or 1, but holds \"2\"."},
        {front + "0.4\r\n", "Line 7 (name in replies) should be 0 or 1, but holds \"0.4\"."},
        {front + "1\r\n1\r\n\r\n", "Line 9 (auto run 0) should be 0 or 1, but holds \"\"."},
        {front + "1\r\n1\r\n1\r\n-1\r\n",
         "Line 10 (auto run 1) should be 0 or 1, but holds \"-1\"."},
        {front + "1\r\n1\r\n1\r\n1\r\n7\r\n",
         "Line 12 (HCA) should be plain text, but the file ends before it."},
        {std::string("0\r\n\0\x01\xFF", 6) + std::string(60, 'x'),
         "Line 2 (device ID) should be plain text, but holds \"?\?\xC3\xBF" + std::string(60, 'x') +
             "\"."},
    };
    openRead();
    for (const Row& row : table) {
        write("bad.par", row.bytes);
        gate.expectOpenDialog(openDialog, "bad.par");
        gate.expectMessage("File bad.par is not a parameter file.  " + row.fault);
        click(*form, "OpenParameters");
        EXPECT_EQ(shown("pendingCount"), "Nothing to write") << row.fault;
    }
}

TEST_F(ParameterFilesTest, TakeWhateverTheDialogsAnswer) {
    openRead();
    for (const auto& name : {std::optional<std::string>{}, {""}, {"*.par"}, {"a*b"}}) {
        gate.expectOpenDialog(openDialog, name);
        click(*form, "OpenParameters");
        gate.expectSaveDialog(saveDialog, name);
        if (name == "")
            gate.expectMessage("No Parameter File Name!");
        click(*form, "SaveParameters");
    }
    EXPECT_TRUE(std::filesystem::is_empty("."));
    gate.expectOpenDialog(openDialog, "no such.par");
    gate.expectMessage("File no such.par does not exist!");
    click(*form, "OpenParameters");
    gate.expectOpenDialog(openDialog, ".");
    gate.expectMessage("File . could not be read.");
    click(*form, "OpenParameters");
    gate.expectSaveDialog(saveDialog, "no folder/x.par");
    gate.expectMessageWith("The parameters could not be saved in no folder/x.par: ");
    click(*form, "SaveParameters");
}

TEST_F(ParameterFilesTest, RefuseWhatNoFileCanHold) {
    openRead();
    write("set.par", "kept");
    type("LCA", "\xE2\x82\xAC");
    gate.expectSaveDialog(saveDialog, "set.par");
    gate.expectMessageWith("U+20AC");
    click(*form, "SaveParameters");
    EXPECT_EQ(bytesOf("set.par"), "kept");
}

}  // namespace
}  // namespace zlt::test
