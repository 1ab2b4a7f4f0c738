#pragma once

#include <string>

namespace Platform {

// The path as system calls take it, living as long as the text. One with a zero
// byte in it, where the system would cut it off and answer for another entry,
// becomes the empty path, at which nothing stands. Any thread.
inline const char* systemPath(const std::string& path)
{
    return path.find('\0') == std::string::npos ? path.c_str() : "";
}

}  // namespace Platform
