// The stand-in tools as the panel meets them: setup file in, result file out, port by number.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QProcess>
#include <QTemporaryDir>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/SimulatedBus.h"

namespace zlt::test {
namespace {

namespace fs = std::filesystem;

class StandInsTest : public ::testing::Test {
 protected:
    StandInsTest() {
        fs::create_directories(exe);
        fs::copy(ZLT_COMPILER_PATH, exe);
        fs::copy(ZLT_DOWNLOADER_PATH, exe);
        std::ofstream(current / "zlt-r-485.ports") << "COM3=" << bus.device() << "\n";
    }

    void write(const std::string& file, const std::string& bytes) const {
        std::ofstream(exe / file, std::ios::binary) << bytes;
    }
    [[nodiscard]] std::string read(const std::string& file) const {
        std::ifstream stream(exe / file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    [[nodiscard]] std::string firstLine(const std::string& file) const {
        const std::string bytes = read(file);
        return bytes.substr(0, bytes.find("\r\n"));
    }
    /// Starts a tool from another folder than its own.
    void run(const char* tool) const {
        QProcess process;
        process.setChildProcessModifier([this] {
            const rlimit size{longestFile, longestFile};
            ::setrlimit(RLIMIT_FSIZE, &size);
            std::signal(SIGXFSZ, SIG_IGN);
        });
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.setWorkingDirectory(QString::fromStdString(current.string()));
        process.start(QString::fromStdString((exe / tool).string()), QStringList());
        EXPECT_TRUE(process.waitForFinished(20'000)) << tool;
    }
    void compiler(const std::string& operation, const std::string& file) const {
        write("sa_compile_decompile_setup.txt",
              "MOD:ZLT-R-NX-42\r\nOPE:" + operation + "\r\nFIL:" + file + "\r\n");
        run("SA_Compile_Decompile");
    }
    /// Runs the downloader with the panel's lines; one more replaces that of the same key.
    void downloader(const std::string& operation, const std::string& line = {}) const {
        write("sa_download_upload_setup.txt",
              "LIN: 510\r\nCOM:SERIAL\r\nPOR: 3\r\nBAU:9600\r\nDEV:07\r\nOPE:" + operation +
                  "\r\nFIL:CompileOut.txt\r\nMOD:ZLT-R-NX-42\r\n" + line + "\r\n");
        run("SA_Download_Upload");
    }

    QTemporaryDir folder;
    fs::path current = folder.path().toStdString();
    fs::path exe = current / "my panel" / "EXE";
    rlim_t longestFile = RLIM_INFINITY;  // of those that a tool writes
    SimulatedBus bus{{QStringLiteral("--controller"), QStringLiteral("id=7,baud=9600,rt=1")}};
};

TEST_F(StandInsTest, BringAProgramToTheControllerAndBack) {
    const std::string program = "V1=1\r\n\r\n  \tX\\1000 @40 \\40 \r\n; \xE4\x80\xFF\x01\r\n" +
                                std::string(200, 'x') + "\r\nEND\r\nPRG 1\r\nFAILED\r\n";
    write("Program.prg", program);
    compiler("COMPILE", "Program.prg");
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

TEST_F(StandInsTest, CompilerNamesTheLinesThatBeginWithAQuestionMark) {
    write("Program.prg", "?\r\nA?\r\n?Line\r\n ?\r\n");
    compiler("COMPILE", " Program.prg\t");
    const std::string result = read("CompileOut.txt");
    EXPECT_TRUE(result.starts_with("FAILED"));
    EXPECT_EQ(result.substr(result.find("\r\n")), "\r\nLine: 1\r\nLine: 3\r\n");
}

TEST_F(StandInsTest, LeaveNoHalfResultOnAFullDisk) {
    std::string program;
    while (program.size() < 6000)
        program += "X1000\r\n";
    write("Program.prg", program);
    write("CompileOut.txt", "old");
    longestFile = 4096;
    compiler("COMPILE", "Program.prg");
    EXPECT_EQ(read("CompileOut.txt"),
              "FAILED - stand-in compiler: CompileOut.txt cannot be written whole.\r\n");
    longestFile = 20;
    write("CompileOut.txt", "old");
    compiler("COMPILE", "Program.prg");
    EXPECT_EQ(read("CompileOut.txt"), "old");
    EXPECT_FALSE(fs::exists(exe / "CompileOut.txt.part"));
}

TEST_F(StandInsTest, DownloaderSaysWhatIsWrong) {
    const std::string good = "OK - x\r\n0000 A\r\n";
    struct Row {
        const char *setupLine, *fault, *words;
        std::string listing;
    };
    const Row table[] = {
        {"BAU:", "", "BAU", good},
        {"POR: 4", "", "COM4 at 9600 baud cannot be opened: No device", good},
        {"", "answer DN=A\\nLine", "\"A\\0ALine\" answers", good},
        {"", "silent\nbabble on", "without an end", good},
        {"", "", "does not take 0", "OK - x\r\n0000 " + std::string(201, 'A') + "\r\n"},
        {"", "", "holds no program but a failure", "FAILED - x\r\nLine: 1\r\n"}};
    for (const Row& row : table) {
        bus.say(row.fault);
        write("CompileOut.txt", row.listing);
        downloader("DOWNLOAD", row.setupLine);
        const std::string result = firstLine("DownloadOut.txt");
        EXPECT_TRUE(result.starts_with("FAILED - stand-in downloader: ")) << result;
        EXPECT_NE(result.find(row.words), std::string::npos) << result << "\n" << row.words;
        bus.say("normal\nspeak");
    }
}

TEST_F(StandInsTest, AFailedUploadLeavesNoImageToDecompile) {
    bus.say("answer SAPN=1\nanswer SAPR0=?SAPR0");
    write("UploadOut.txt", "OK - x\r\n0000 A\r\n");
    downloader("UPLOAD");
    compiler("DECOMPILE", "UploadOut.txt");
    EXPECT_EQ(read("DecompileOut.prg"),
              "FAILED - stand-in compiler: UploadOut.txt holds no program but a failure:\r\n" +
                  firstLine("UploadOut.txt") + "\r\n");
}

}  // namespace
}  // namespace zlt::test
