#include "ctl/Arguments.h"

namespace zlt::ctl {

std::string_view helpText() {
    return R"(zltctl - works ZLT-R-NX stepper-motor controllers from scripts

zltctl [OPTION...] COMMAND ...

What the options leave open comes from zlt-r-485.ini and zlt-r-485.ports of the current folder, as
the panel has them.  Neither is ever written.

Talking:
  send TEXT...              one exchange each, the reply on standard output
  send -                    the same for each line of standard input
  terminal                  lines typed by hand, with history; "@05" goes on with device 05
Axis:
  status [NAME...]          one reading; with names these values alone
  watch [--every MS] [--csv]
                            a reading each 500 ms, or as often as is said, until Ctrl+C
  move POSITION             moves there, or by so much in incremental mode
  jog + | -                 runs until it is stopped
  home KIND                 H+ H- HL+ HL- L+ L- ZH+ ZH- Z+ Z-; + and - are H+ and H-
  stop | abort              by its ramp | at once; goes out before anything is asked
    --speed N, --accel N    sent before move, jog and home; what is left out stays as it is
    --wait                  until the axis stands; fails on a limit error
Devices:
  search [--all]            for the first controller, or for all; with --port there alone
  parameters read [FILE]    into the file, or onto standard output
  parameters write FILE [--id keep|from-file | --new-id NN] [--store]
  parameters diff FILE [--id keep]
                            what the controller has otherwise; --id keep leaves the ID out
Programs, by the tools in the folder EXE beside this program:
  program compile FILE      the number of compiled lines on standard output
  program download [FILE]   sends what was compiled last, or compiles the file first
  program upload [FILE]     into the file, or onto standard output
  program clear | run | stop
                            erases the program memory | runs it | stops it and the axis

Options, anywhere:
  --port COM3|DEVICE        a port's number, or a device such as /dev/ttyUSB0
  --baud RATE               9600 19200 38400 57600 115200, or another
  --id NN                   the device's address; 00 is all of them: send, stop and abort alone
  --yes                     the answer to each question: another ID or baud rate, a file that is
                            there already
  --json                    results as JSON, an object a line
  -q, --quiet               no notes and no progress, errors alone
  -h, --help                this text
  --version                 the version

Exit codes: 0 done; 1 refused by the controller or a tool, or a value is wrong, or differs;
2 usage; 3 no reply; 4 port; 128 and its number for a signal.
)";
}

std::string versionText() {
    return "zltctl " ZLT_VERSION "\n";
}

}  // namespace zlt::ctl
