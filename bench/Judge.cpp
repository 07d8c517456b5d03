#include "bench/Judge.h"

#include <cstdio>

namespace zlt::bench {

std::string Judge::never(bool happened, const std::string& what) {
    m_allMet = m_allMet && !happened;
    return happened ? what : std::string();
}

std::string Judge::tell(bool met, double aim) {
    m_allMet = m_allMet && met;
    char text[32];
    std::snprintf(text, sizeof text, "%.3g %s", aim, met ? "met" : "MISSED");
    return text;
}

}  // namespace zlt::bench
