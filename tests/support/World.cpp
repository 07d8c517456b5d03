#include "support/World.h"

#include <QCoreApplication>
#include <QTimer>
#include <filesystem>

namespace zlt::test {

World::World() : m_before(std::filesystem::current_path()) {
    std::filesystem::current_path(folder.path().toStdString());
    // After a test that ended the program no event loop would run; a new one starts afresh.
    if (QCoreApplication::instance()) {
        QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
        QCoreApplication::exec();
    }
}

World::~World() {
    std::filesystem::current_path(m_before);
}

Services World::servicesWith(Waits& pauses, decltype(Services::makePort) makePort) {
    return {.gate = endingGate,
            .waits = pauses,
            .files = files,
            .help = help,
            .programEnd = programEnd,
            .processes = tools,
            .ownFolder = folder.path().toStdString(),
            .dataFolder = dataFolder.path().toStdString(),
            .makePort = std::move(makePort)};
}

void World::answerAsController(const std::string& version) {
    bus.replies = {{"DN", "ZLD01"}, {"VER", version}, {"ID", "ZLT-R-NX-42"}, {"HSPD", "5000"},
                   {"ACC", "250"},  {"CUR", "800"},   {"PX", "-12"},         {"EX", "34"},
                   {"MST", "0"},    {"EO", "1"},      {"MM", "0"},           {"DO", "0"},
                   {"SPC", "7"},    {"SASTAT", "0"}};
}

}  // namespace zlt::test
