// Replies that come slowly, without end or not at all.

#include <QTest>
#include <atomic>

#include "faults/FakeDevice.h"
#include "faults/StartUpWorld.h"
#include "panel/MainControlForm.h"

namespace zlt::test {
namespace {

class RepliesTest : public StartUpWorld {
 protected:
    Reading ask(Port& port) {
        port.write("@01DN\r");
        return readReply(port, {});
    }
};

TEST_F(RepliesTest, ThePollRecoversFromSilenceAndFragments) {
    simulator.say("answer PX=4711");
    MainControlForm form(real, nullptr);
    form.Form_Load({{1}, "9600", "01"});
    form.show();
    const auto shows = [&](const char* state) {
        return wait([&] { return textOf(form, "ComStatusDisplay") == state; });
    };
    for (const char* fault : {"silent", "partial on"}) {
        SCOPED_TRACE(fault);
        simulator.say(fault);
        EXPECT_TRUE(shows("No Communication"));
        simulator.say("normal");
        simulator.say("speak");
        simulator.say("answer PX=4711");
        EXPECT_TRUE(shows("Communication OK"));
        EXPECT_TRUE(wait([&] { return textOf(form, "Pos") == "4711"; }));
    }
    click(form, "Command2");
}

TEST_F(RepliesTest, ALineThatBabblesDoesNotGrowTheMemory) {
    constexpr std::size_t babble = 2'000'000;
    std::atomic<bool> said = false;
    FakeDevice device([&](const std::string& request) {
        const bool quiet = request == "@01DN";
        if (!quiet)
            said = true;
        return quiet ? "ZLD01\r" : std::string(babble, 'A') + "\r";
    });
    listPort(device.path());
    QWidget owner;
    QtSerialPort port(directory, &owner);
    const auto& serial = *owner.findChild<QSerialPort*>(QStringLiteral("MSComm1"));
    ASSERT_TRUE(port.open({1}, "9600,N,8,1"));

    port.write("@01PX\r");
    const Reading reading = readReply(port, {});
    EXPECT_EQ(reading.ending, Ending::reply);
    EXPECT_EQ(reading.text.size(), replyTextKept);
    EXPECT_EQ(ask(port).text, "ZLD01") << "it was read to its end";

    port.write("@01PX\r");
    qint64 most = 0;
    for (int turn = 0; turn < 30; ++turn) {
        QTest::qWait(10);
        most = std::max(most, serial.bytesAvailable());
    }
    EXPECT_TRUE(said);
    EXPECT_GT(most, 0);
    EXPECT_LE(most, 64 * 1024) << "nobody reads, and nothing more is kept";
}

}  // namespace
}  // namespace zlt::test
