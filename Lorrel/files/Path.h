#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FileAttributes.h"
#include "platform/runtime/Date.h"
#include "platform/runtime/Image.h"
#include "platform/runtime/Url.h"

namespace Lorrel {

// What a path leads to, symbolic links followed.
enum class PathType { invalid, file, directory };

// Questions to the file system and listings of folders. Everything is read anew
// with each call. Failures show as empty lists, absent values and sums without
// what could not be read; where a line says so, the system's description is
// printed on standard output.
//
// Listings leave out hidden entries (names that begin with a dot, and all below
// them). They never follow symbolic links: a link, even one to a folder, is an
// entry that is no folder. A folder stands before what is inside it.
// Thread: any; icon() main.
class Path {
public:
    using Url = Platform::Url;

    Path() = delete;

    static bool exists(const std::string& path);
    static bool exists(const Url& location);
    static bool isDirectory(const std::string& path);
    static PathType type(const std::string& path);

    // Everything below the folder, but nothing inside packages.
    static std::vector<Url> items(const Url& folder);
    // The same without the folders.
    static std::vector<Url> files(const Url& folder);
    // Everything below the folder, packages entered, whose name ends with the text.
    static std::vector<Url> files(const Url& folder, std::string_view suffix);
    // The folders among items() whose names end with the text.
    static std::vector<Url> directories(const Url& folder, std::string_view suffix);

    // What is directly inside the folder: its folders, or else all that is none.
    // Prints why a folder cannot be listed.
    static std::vector<Url> contents(const Url& folder, bool directories);
    // Optionally without what lies in a "Library" that is the fourth component
    // of the path ("/", users, account, Library).
    static std::vector<Url> contents(const Url& folder, bool directories, bool excludingLibrary);
    // The applications' containers, optionally without those of the system ("com.apple.").
    static std::vector<Url> containers(bool excludingSystem);

    // The folders among items(). When an entry's kind cannot be read, prints why
    // and ends with what was found so far.
    static std::vector<Url> subfolders(const Url& folder);
    static std::vector<Url> subfolders(const Url& folder, bool excludingLibrary);

    // How many folders (or other entries) lie below the ones directly inside,
    // links and the account's "Library" left out.
    static int nestedCount(const Url& folder, bool directories);

    // Bytes of all that lies below the folder, hidden entries and packages included.
    static std::uint64_t size(const Url& folder);
    // Bytes of one file; 0 for folders and what is not there.
    static std::uint64_t fileSize(const Url& file);

    // Removes the file, or the folder with all that it holds; prints why it could
    // not. True when nothing is there any more.
    static bool remove(const Url& location);

    // Absent when nothing is there or the attribute is no date.
    static std::optional<Platform::Date> date(const std::string& path, Platform::FileAttribute attribute);
    static std::optional<Platform::Date> creationDate(const std::string& path);
    // When the user last opened it; absent when that is not known or it may not be read.
    static std::optional<Platform::Date> lastUsedDate(const std::string& path);

    // The picture for files of this one's kind, told by its name ending.
    static Platform::ImageRef icon(const Url& file);
};

}  // namespace Lorrel
