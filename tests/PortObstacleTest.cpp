#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "link/PortObstacle.h"
#include "support/World.h"

namespace zlt::test {
namespace {

PortFindings goodPort() {
    PortFindings findings;
    findings.number = {3};
    findings.entry = {"/dev/ttyUSB0", "Acme"};
    findings.exists = findings.serial = findings.mayOpen = true;
    findings.user = "kim";
    return findings;
}

TEST(PortReport, TellsTheObstaclesApart) {
    struct Row {
        void (*change)(PortFindings&);
        Obstacle obstacle;
        const char *words, *command;
    };
    const Row table[] = {
        {[](PortFindings&) {}, Obstacle::none, "", ""},
        {[](PortFindings& f) { f.entry = {}; }, Obstacle::nothingThere, "COM3 stands for no", ""},
        {[](PortFindings& f) { f.entry = {}, f.fromList = true; }, Obstacle::nothingThere,
         "COM3 is not in the port list zlt-r-485.ports", ""},
        {[](PortFindings& f) { f.exists = f.mayOpen = false; }, Obstacle::noSuchDevice,
         "no such device", ""},
        {[](PortFindings& f) { f.serial = false; }, Obstacle::notSerial, "not a serial port", ""},
        {[](PortFindings& f) { f.mayOpen = false, f.group = "uucp"; }, Obstacle::noRight,
         "group uucp", "sudo usermod -a -G uucp kim"},
        {[](PortFindings& f) { f.mayOpen = false, f.group = "uucp", f.inGroupAlready = true; },
         Obstacle::noRight, "Log out and in again", ""},
        {[](PortFindings& f) { f.mayOpen = false; }, Obstacle::noRight, "You may not open it",
         "sudo setfacl -m u:kim:rw '/dev/ttyUSB0'"},
        {[](PortFindings& f) {
             f.users = {{"minicom", 12}, {"", 34}};
         },
         Obstacle::inUse, "In use by minicom (process 12), process 34", ""},
        {[](PortFindings& f) { f.lastFailure = "Device or resource busy"; }, Obstacle::failed,
         "Device or resource busy", ""},
    };
    for (const Row& row : table) {
        PortFindings findings = goodPort();
        row.change(findings);
        const PortReport report = reportPort(findings);
        EXPECT_EQ(report.obstacle, row.obstacle) << row.words;
        EXPECT_NE(report.problem.find(row.words), std::string::npos) << report.problem;
        EXPECT_EQ(report.problem.empty(), *row.words == '\0');
        EXPECT_EQ(report.command, row.command);
    }
}

/// What a device path would be reported as, by really looking at it.
PortReport look(World& world, const std::string& path) {
    std::ofstream("zlt-r-485.ports") << "COM1=" << path << "\n";
    world.directory.refresh();
    return reportPort(examinePort(world.directory, {1}));
}

TEST(PortExamination, LooksAtRealDevices) {
    World world;
    EXPECT_EQ(look(world, "/dev/no-such-port").obstacle, Obstacle::noSuchDevice);
    EXPECT_EQ(look(world, "/dev/null").obstacle, Obstacle::notSerial);
    EXPECT_EQ(look(world, world.folder.path().toStdString()).obstacle, Obstacle::notSerial);

    int master = -1, slave = -1;
    char name[64];
    ASSERT_EQ(openpty(&master, &slave, name, nullptr, nullptr), 0);
    EXPECT_EQ(look(world, name).obstacle, Obstacle::none);
    close(slave);
    close(master);
}

TEST(PortExamination, NamesTheProgramThatHoldsALock) {
    World world;
    int master = -1, slave = -1;
    char name[64];
    ASSERT_EQ(openpty(&master, &slave, name, nullptr, nullptr), 0);
    int ready[2], done[2];
    ASSERT_EQ(pipe(ready) + pipe(done), 0);
    const pid_t holder = fork();
    if (holder == 0) {
        char byte = 0;
        const int fd = open(name, O_RDWR | O_NOCTTY);
        const bool locked = flock(fd, LOCK_EX | LOCK_NB) == 0;
        (void)!write(ready[1], locked ? "y" : "n", 1);
        (void)!read(done[0], &byte, 1);
        _exit(0);
    }
    char locked = 0;
    ASSERT_EQ(read(ready[0], &locked, 1), 1);
    ASSERT_EQ(locked, 'y');
    const PortReport report = look(world, name);
    EXPECT_EQ(report.obstacle, Obstacle::inUse);
    EXPECT_NE(report.problem.find("logic_tests (process " + std::to_string(holder)),
              std::string::npos)
        << report.problem;
    (void)!write(done[1], "x", 1);
    for (const int fd : {master, slave, ready[0], ready[1], done[0], done[1]})
        close(fd);
}

TEST(PortExamination, SpeaksOfRightsOnlyWhereTheyLack) {
    if (geteuid() == 0)
        GTEST_SKIP() << "root may open everything";
    World world;
    int master = -1, slave = -1;
    char name[64];
    ASSERT_EQ(openpty(&master, &slave, name, nullptr, nullptr), 0);
    ASSERT_EQ(chmod(name, 0), 0);
    EXPECT_EQ(look(world, name).obstacle, Obstacle::noRight);
    close(slave);
    close(master);
}

}  // namespace
}  // namespace zlt::test
