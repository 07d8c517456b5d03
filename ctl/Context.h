#pragma once

#include "ctl/Arguments.h"
#include "ctl/CommandGate.h"
#include "ctl/Console.h"
#include "ctl/Output.h"
#include "ctl/Session.h"
#include "ctl/Target.h"

namespace zlt::ctl {

/// What a command works with.
struct Context {
    const Arguments& arguments;
    /// What stands after the command's own words.
    std::vector<std::string> operands;
    Output& output;
    CommandGate& gate;
    Console& console;
    Heed& heed;
    const Services& services;
    Session& session;
    /// What to say when a signal ends the command.
    std::string& whenInterrupted;
};

// The commands. Each has the port open, and the controller identified where it needs that, before
// it begins; each throws Failure.

void showStatus(Context& context);
void watchStatus(Context& context);

void moveAxis(Context& context);
void jogAxis(Context& context);
void homeAxis(Context& context);
void stopAxis(Context& context);
void abortAxis(Context& context);

void sendTexts(Context& context);
void talkByHand(Context& context);

void searchDevices(Context& context);

void readParameters(Context& context);
void writeParameters(Context& context);
void compareParameters(Context& context);

void compileProgram(Context& context);
void downloadProgram(Context& context);
void uploadProgram(Context& context);
void clearProgram(Context& context);
void runProgram(Context& context);
void stopProgram(Context& context);

}  // namespace zlt::ctl
