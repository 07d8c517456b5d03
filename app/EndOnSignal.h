#pragma once

#include <QObject>

#include "platform/ProgramEnd.h"

namespace zlt {

/// Ends the program in order on SIGTERM, SIGHUP and SIGINT, once the running exchange or tool is
/// over: closes what is on the screen from the top, so that the port is let go, with its lock
/// file. The exit code is 128 and the signal's number, as shells have it. A signal more than two
/// seconds after the first ends the program at once: a line that never falls silent would hold it
/// for ever. No signals on Windows.
///
/// Qt leaves by exit(), past everything, when the display is gone, as when the desktop ends before
/// its programs: what is not saved is kept then, and no more. There is one of these at a time.
class EndOnSignal : public QObject {
    Q_OBJECT

 public:
    /// `programEnd` outlives it.
    explicit EndOnSignal(ProgramEnd& programEnd);
    ~EndOnSignal() override;
    Q_DISABLE_COPY_MOVE(EndOnSignal)

 private:
    void end(int signal);

    ProgramEnd& m_programEnd;
};

}  // namespace zlt
