// What every call of the host on the public class passes through.
#pragma once

#include <memory>
#include <utility>

#include "session/ReportFrame.h"
#include "session/data/OutOfMemory.h"

namespace pstolvane1 {

// Does the work of one call, which gets the frame. The frame is kept to its end, because a handler
// may destroy the session inside it. Memory that runs out is error 7; what has a name of its own,
// such as the reading of the rows, tells it more closely.
template <typename Work>
auto OnFrame(std::shared_ptr<ReportFrame> frame, const Work& work) {
  const std::shared_ptr<ReportFrame> kept = std::move(frame);
  return TellingWhatRanOut("preparing the call", [&] { return work(*kept); });
}

}  // namespace pstolvane1
