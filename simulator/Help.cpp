#include "simulator/Options.h"

namespace zlt::sim {

std::string_view helpText() {
    return R"(zlt-sim - a serial bus with simulated ZLT-R-NX controllers

Each port is a pseudo-terminal; its path is printed as NAME=PATH, one line a port.
Without options: port COM1 with controller 01, firmware 322, 9600 baud.

Options (those of a port belong to the last --port before them):
  --port NAME          begin a port, such as COM3
  --link PATH          make PATH a symbolic link to the port; removed at the end
  --controller LIST    put a controller on the port; LIST is comma-separated out of
                         id=1..99          bus address (the bare number will do)
                         firmware=NNN      322; what older ones lack is refused
                         baud=RATE         9600 19200 38400 57600 115200; it is deaf
                                           to a client that has set another rate
                         product=TEXT      what "ID" answers
                         rt=0|1            "#" and the digits before each reply
                         limits=LOW:HIGH   limit switches, pulses (-20000:20000)
                         home=N            home switch, pulses (-2000)
                         home-width=N      its width, pulses (200)
                         index=N           distance of index marks, pulses (800)
  --pace, --unpaced    let bytes take their time on the wire (the default), or not
  --fault LINE         start with a fault: a line as below, without the port's name
  --log FILE           write requests (<) and replies (>) with times in seconds
  --until-stdin-closes end when standard input ends
  --help               this text

Lines on standard input: [NAME] WORD..., without NAME for all ports. A wrong line is
reported on standard error.
  silent | speak       answer no more | answer again
  delay N              wait N ms before each answer; 0 ends it
  drip N               wait N ms between bytes; 0 ends it
  babble on|off        a stream of bytes without an end
  garbage on|off       random bytes for answers, with and without an end
  empty on|off         answers that are only a carriage return
  partial on|off       the first half of each answer, without an end
  stray TEXT           send TEXT after each answer; none ends it
  answer CMD=TEXT      answer TEXT to CMD; CMD alone ends it; where CMD holds an "="
                       write "answer CMD->TEXT". TEXT may hold \r \n \0 \\ \xHH
  normal               end all of the above
  hangup | plug        pull the adapter out | plug it in (a new path, printed again)
  power                power cycle of every controller on the port
  power ID             of one
  id OLD NEW           give a controller another address
  firmware N           every controller on the port has firmware N; "firmware ID N" one
  pace | unpaced       as the options
  echo TEXT            print TEXT once all lines before it are carried out
  quit                 end

The controllers:
  Replies to settings are "OK". What is unknown, malformed, out of range, refused in the
  present state (a move while moving, without power, against a limit error) or missing
  in the firmware is answered "?" and the command. Below 317: no MM, DL, SPC, SASTAT,
  and no query DO; below 322: no HL, L, LCA, HCA, DOBOOT and no second thread.
  DN and DB show what is in use; new ones are in use after STORE and a power cycle.
  V16 to V31 survive a power cycle by themselves; all else only after STORE.
  DO is the first output, DO1; with SYNO the position rules it (SYNC 1 =, 2 <, 3 >).
  H stops by its ramp and is zero at the home switch; HL goes back by HCA pulses and
  comes again at a quarter of the speed; L goes back from the limit by LCA pulses and is
  zero there; ZH looks for the next index mark past the home switch; Z for the next
  index mark. DL=1 lets moves pass the limits. SCV is kept, but the ramp stays straight.
  A program without lines goes to error (4) when it is run; CLR or SR=0 clear it.
  A program is text: a line a step each 20 ms, from the top again after the last; it
  stops at a line END. The part of thread 1 begins at a line PRG 1. Other lines do nothing.
  Program memory over the bus, kept without STORE, not while a thread is active:
    SAPN         number of lines
    SAPC         clear
    SAPWn=TEXT   write line n, from 0, without gaps; up to 1020 lines of 200 characters
    SAPRn        read line n: a colon and the text; "?" past the last
)";
}

}  // namespace zlt::sim
