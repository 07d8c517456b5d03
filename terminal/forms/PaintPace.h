#pragma once

#include <QElapsedTimer>

namespace zlt {

/// Says when a text that grows character by character is to be painted: each one of a slow
/// line, and as often as a screen shows of a fast one, which painting must not hold up.
class PaintPace {
 public:
    bool due() {
        constexpr qint64 frameMs = 15;
        if (m_sincePainted.isValid() && !m_sincePainted.hasExpired(frameMs))
            return false;
        m_sincePainted.start();
        return true;
    }

 private:
    QElapsedTimer m_sincePainted;
};

}  // namespace zlt
