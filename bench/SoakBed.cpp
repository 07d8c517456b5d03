#include "bench/SoakBed.h"

#include <filesystem>

namespace zlt::bench {

SoakBed::SoakBed() {
    // The screens leave their files here, if any.
    std::filesystem::current_path(m_world.folder.path().toStdString());
    listPort();
}

void SoakBed::listPort() {
    m_world.listPort(simulator.device());
    m_world.directory.refresh();
}

}  // namespace zlt::bench
