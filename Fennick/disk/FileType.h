#pragma once

#include <vector>

#include "platform/runtime/Url.h"

namespace Fennick {

// The broad kind of a file. The numbers are kept by programs.
enum class FileType { other = 0, video = 1, photo = 2, archive = 3, audio = 4, document = 5 };

// By the type that the file's name tells; what is not there is `other`. Thread: any.
FileType fileType(const Platform::Url& file);

// The newest first; those of the same date, and those without one at the end,
// stay in their order. Thread: any.
std::vector<Platform::Url> sortedByModificationDate(const std::vector<Platform::Url>& files);

}  // namespace Fennick
