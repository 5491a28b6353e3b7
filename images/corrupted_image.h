#pragma once

#include <string>
#include <string_view>

#include "platform/automation/types.h"

/// What is told of pictures whose pixels are damaged. Errors of the project, its database and the host's
/// services pass through.
namespace quenzel7 {

/// Where a damaged picture was met.
struct CorruptedImageSource {
  std::string_view className, method;
};

/// Logs that a picture was saved whose pixels did not fit its size; they were made anew where that was
/// possible.
void LogRepairedImage(const std::string& path, const CorruptedImageSource& source);

/// Removes an element from the project whose pixels give no bitmap, with its pictures, logs it, and has the
/// host show its pages anew. Of a button only the pictures are removed.
void ReportCorruptedImage(const std::string& pPath, Long pElementID);

}  // namespace quenzel7
