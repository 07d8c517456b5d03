// The stand-in tools as the panel meets them: setup file in, result file out, port by number.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "support/SimulatedBus.h"

namespace zlt::test {
namespace {

namespace fs = std::filesystem;

class StandIns : public ::testing::Test {
 protected:
    StandIns() {
        fs::create_directories(exe);
        fs::create_directories(current);
        fs::copy(ZLT_COMPILER_PATH, exe);
        fs::copy(ZLT_DOWNLOADER_PATH, exe);
    }

    void write(const std::string& file, const std::string& bytes) const {
        std::ofstream(exe / file, std::ios::binary) << bytes;
    }
    std::string read(const std::string& file) const {
        std::ifstream stream(exe / file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::string firstLine(const std::string& file) const {
        const std::string bytes = read(file);
        return bytes.substr(0, bytes.find("\r\n"));
    }
    void run(const char* tool) const {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.setWorkingDirectory(QString::fromStdString(current.string()));
        process.start(QString::fromStdString((exe / tool).string()), QStringList());
        ASSERT_TRUE(process.waitForFinished(20'000)) << tool;
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << tool;
        EXPECT_LE(process.exitCode(), 1) << tool;
    }
    void compiler(const std::string& operation, const std::string& file) const {
        write("sa_compile_decompile_setup.txt",
              "MOD:ZLT-R-NX-42\r\nOPE:" + operation + "\r\nFIL:" + file + "\r\n");
        run("SA_Compile_Decompile");
    }
    /// Runs the downloader with the panel's eight lines, one of them replaced.
    void downloader(const std::string& operation, const std::string& replacement = {}) const {
        std::string setup;
        for (const std::string& line :
             {std::string("LIN: 510"), std::string("COM:SERIAL"), std::string("POR: 3"),
              std::string("BAU:9600"), std::string("DEV:07"), "OPE:" + operation,
              std::string("FIL:CompileOut.txt"), std::string("MOD:ZLT-R-NX-42")})
            setup += (line.substr(0, 4) == replacement.substr(0, 4) ? replacement : line) + "\r\n";
        write("sa_download_upload_setup.txt", setup);
        run("SA_Download_Upload");
    }
    void connect() {
        bus.emplace(
            QStringList{QStringLiteral("--controller"), QStringLiteral("id=7,baud=9600,rt=1")});
        std::ofstream(current / "zlt-r-485.ports") << "COM3=" << bus->device() << "\n";
    }

    QTemporaryDir folder;
    fs::path exe = fs::path(folder.path().toStdString()) / "my panel" / "EXE";
    fs::path current = fs::path(folder.path().toStdString()) / "current";
    std::optional<SimulatedBus> bus;
};

const std::string program = "V1=1\r\n\r\n  \tX\\1000 @40 \\40 \r\n; \xE4\x80\xFF\x01\r\n" +
                            std::string(200, 'x') + "\r\nEND\r\nPRG 1\r\nFAILED\r\n";

TEST_F(StandIns, BringAProgramToTheControllerAndBack) {
    connect();
    write("Program.prg", program);
    compiler("COMPILE", "Program.prg");
    const std::string listing = read("CompileOut.txt");
    EXPECT_EQ(std::count(listing.begin(), listing.end(), '\n'), 9) << listing;
    downloader("DOWNLOAD");
    EXPECT_EQ(firstLine("DownloadOut.txt"), "OK - stand-in downloader: 8 lines sent to ZLD07.");
    write("CompileOut.txt", "");
    downloader("UPLOAD", "LIN:510");
    compiler("DECOMPILE", "UploadOut.txt");
    EXPECT_EQ(read("DecompileOut.prg"), program);

    downloader("CLEAR");
    EXPECT_EQ(firstLine("DownloadOut.txt"), "OK - stand-in downloader: ZLD07 cleared.");
    downloader("UPLOAD");
    compiler("DECOMPILE", "UploadOut.txt");
    EXPECT_EQ(read("DecompileOut.prg"), "");
}

TEST_F(StandIns, CompilerNamesTheLinesThatBeginWithAQuestionMark) {
    write("Program.prg", "?\r\nA?\r\n?Line\r\n ?\r\n");
    compiler("COMPILE", " Program.prg\t");
    EXPECT_EQ(firstLine("CompileOut.txt").find("FAILED"), 0U);
    EXPECT_EQ(firstLine("CompileOut.txt").find("Line"), std::string::npos);
    const std::string result = read("CompileOut.txt");
    EXPECT_EQ(result.substr(result.find("\r\n")), "\r\nLine: 1\r\nLine: 3\r\n");
}

TEST_F(StandIns, DownloaderSaysWhatIsWrong) {
    const std::string good = "OK - x\r\n0000 A\r\n";
    struct Row {
        const char *setupLine, *fault, *words;
        std::string listing;
    };
    connect();
    const Row table[] = {
        {"BAU:", "", "BAU", good},
        {"MOD: ", "", "MOD", good},
        {"POR: 4", "", "COM4 at 9600 baud cannot be opened: No device", good},
        {"POR: x", "", "POR", good},
        {"BAU:fast", "", "baud rate", good},
        {"BAU:38400", "", "ZLD07 does not answer", good},
        {"DEV:08", "", "ZLD08 does not answer", good},
        {"DEV:7", "", "two digits", good},
        {"FIL:None.txt", "", "None.txt", good},
        {"FIL:..", "", "no file", good},
        {"", "silent", "ZLD07 does not answer", good},
        {"", "answer DN=ZLD09", "\"ZLD09\" answers", good},
        {"", "answer DN=A\\nLine", "\"A\\0ALine\" answers", good},
        {"", "answer SAPC=?SAPC", "\"?SAPC\"", good},
        {"", "silent\nbabble on", "without an end", good},
        {"", "", "does not take 0", "OK - x\r\n0000 " + std::string(201, 'A') + "\r\n"},
        {"", "", "holds no program but a failure", "FAILED - x\r\nLine: 1\r\n"},
        {"", "", "is not from a stand-in", ""},
        {"", "", "numbers in CompileOut.txt are mixed up", "OK - x\r\n0000 A\r\n0002 B\r\n"},
        {"", "", "is no code", "OK - x\r\n0000 A@B\r\n"},
    };
    for (const Row& row : table) {
        bus->say(row.fault);
        write("CompileOut.txt", row.listing);
        downloader("DOWNLOAD", row.setupLine);
        const std::string result = firstLine("DownloadOut.txt");
        EXPECT_EQ(result.find("FAILED - stand-in downloader: "), 0U) << result;
        EXPECT_NE(result.find(row.words), std::string::npos) << result << "\n" << row.words;
        bus->say("normal\nspeak");
    }
    const int panel = open(bus->device().c_str(), O_RDWR | O_NOCTTY);
    ASSERT_EQ(flock(panel, LOCK_EX | LOCK_NB), 0);
    downloader("CLEAR");
    EXPECT_NE(firstLine("DownloadOut.txt").find("cannot be opened: Device or resource busy"),
              std::string::npos)
        << firstLine("DownloadOut.txt");
    close(panel);
}

TEST_F(StandIns, AFailedUploadLeavesNoImageToDecompile) {
    connect();
    for (const char* fault : {"silent", "answer SAPN=x", "answer SAPR0=?SAPR0"}) {
        bus->say((std::string("answer SAPN=1\n") + fault).c_str());
        write("UploadOut.txt", "OK - x\r\n0000 A\r\n");
        downloader("UPLOAD");
        compiler("DECOMPILE", "UploadOut.txt");
        EXPECT_EQ(firstLine("DecompileOut.prg"),
                  "FAILED - stand-in compiler: UploadOut.txt holds no program but a failure:");
        EXPECT_NE(read("DecompileOut.prg").find(firstLine("UploadOut.txt")), std::string::npos);
        bus->say("normal\nspeak");
    }
}

TEST_F(StandIns, DecompilerRefusesWhatIsNoImage) {
    for (const char* image : {"", "A\r\n", "OK - x\r\nA\r\n", "OK - x\r\n0000 \\4\r\n",
                              "OK - x\r\n0000 \\zz\r\n", "OK - x\r\n0000 \\\r\n"}) {
        write("UploadOut.txt", image);
        compiler("DECOMPILE", "UploadOut.txt");
        EXPECT_EQ(firstLine("DecompileOut.prg").find("FAILED"), 0U) << image;
    }
    fs::remove(exe / "UploadOut.txt");
    compiler("DECOMPILE", "UploadOut.txt");
    EXPECT_EQ(firstLine("DecompileOut.prg"),
              "FAILED - stand-in compiler: there is no file UploadOut.txt.");
}

TEST_F(StandIns, SurviveAnySetupFile) {
    for (const auto& [tool, setup, result] :
         {std::tuple{"SA_Compile_Decompile", "sa_compile_decompile_setup.txt", "CompileOut.txt"},
          std::tuple{"SA_Download_Upload", "sa_download_upload_setup.txt", "DownloadOut.txt"}}) {
        for (const std::string& bytes :
             {std::string(), std::string("OPE:NONE\r\n"),
              std::string("ope:COMPILE\r\nOPE\r\n:\r\n"), std::string("OPE:COMPILE\nFIL:\n"),
              std::string(100'000, '\0')}) {
            write(setup, bytes);
            run(tool);
            EXPECT_EQ(firstLine(result).find("FAILED"), 0U) << tool << firstLine(result);
            fs::remove(exe / result);
        }
        fs::remove(exe / setup);
        run(tool);
        EXPECT_EQ(firstLine(result).find("FAILED"), 0U) << tool << " without a setup file";
        fs::create_directory(exe / setup);
        fs::remove(exe / result);
        fs::create_directory(exe / result);
        run(tool);
    }
}

}  // namespace
}  // namespace zlt::test
