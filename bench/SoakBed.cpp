#include "bench/SoakBed.h"

#include <filesystem>
#include <fstream>

#include "link/QtSerialPort.h"

namespace zlt::bench {

SoakBed::SoakBed()
    : services{.gate = gate,
               .waits = m_waits,
               .files = m_files,
               .help = m_help,
               .programEnd = m_programEnd,
               .processes = m_processes,
               .ownFolder = {},
               .makePort = [this](QObject* owner) {
                   return std::make_unique<QtSerialPort>(directory, owner);
               }} {
    std::filesystem::current_path(folder.path().toStdString());
    listPort();
}

void SoakBed::listPort() {
    std::ofstream(std::filesystem::path(portListFileName)) << "COM1=" << simulator.device() << "\n";
    directory.refresh();
}

}  // namespace zlt::bench
