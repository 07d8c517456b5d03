#pragma once

#include <initializer_list>

namespace zlt {

/// Notes these signals from now on in place of ending the program, but for those that were ignored
/// when it was started. Returns a descriptor on which the number of each stands as a byte to be
/// read, without waiting; -1 when there is none. A signal more than two seconds after the first
/// ends the program at once: a line that never falls silent would hold it for ever. Not on Windows;
/// once in a program.
int catchSignals(std::initializer_list<int> numbers);

}  // namespace zlt
