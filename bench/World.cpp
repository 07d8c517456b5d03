#include "bench/World.h"

#include <fstream>
#include <utility>

#include "link/serial/QtSerialPort.h"

namespace zlt::bench {
namespace {

std::filesystem::path listIn(const QTemporaryDir& folder) {
    return std::filesystem::path(folder.path().toStdString()) / portListFileName;
}

}  // namespace

World::World(Gate& gate, MakePort makePort)
    : directory(listIn(folder)),
      services{.gate = gate,
               .waits = m_waits,
               .files = m_files,
               .help = m_help,
               .programEnd = m_programEnd,
               .processes = m_processes,
               .ownFolder = {},
               .makePort = makePort ? std::move(makePort) : [this] {
                   return std::make_unique<QtSerialPort>(directory);
               }} {}

void World::listPort(const std::string& device) {
    std::ofstream list(listIn(folder));
    list << portText(port) << '=' << device << '\n';
    if (!list.flush())
        throw std::runtime_error("cannot write the port list");
}

}  // namespace zlt::bench
