// Ctrl-C while a report is made: the report is abandoned, and the program ends by the signal.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

namespace pstolvane1::host {

// What the program ends by once everything that it made is tidied up.
struct StoppedBySignal {
  int signal;
};

// Does the work. A signal to stop meanwhile (interrupt, terminate, hang up) makes another thread
// call `abandon` until the work ends; then StoppedBySignal is thrown in place of what it threw. A
// second signal, or work that does not end in time, ends the program at once. Signals that the
// program was told to ignore stay ignored.
void DoUntilSignal(const std::function<void()>& abandon, const std::function<void()>& work,
                   std::chrono::seconds patience = std::chrono::seconds(2));

// Ends the program as the signal does on its own.
[[noreturn]] void EndBy(int signal);

// While it lives the signals are meant for the pager, and the program goes on.
class SignalsForThePager {
 public:
  SignalsForThePager();
  ~SignalsForThePager();
  SignalsForThePager(const SignalsForThePager&) = delete;
  SignalsForThePager& operator=(const SignalsForThePager&) = delete;

  // As popen for writing; the command takes every signal.
  [[nodiscard]] FILE* Open(const std::string& command) const;
};

}  // namespace pstolvane1::host
