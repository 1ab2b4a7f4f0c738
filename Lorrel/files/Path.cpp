#include "Lorrel/files/Path.h"

#include "Lorrel/files/internal/Printed.h"
#include "platform/files/FileManager.h"
#include "platform/files/IconService.h"
#include "platform/files/MetadataDates.h"
#include "platform/files/TypeIdentifier.h"
#include "platform/runtime/Environment.h"

namespace Lorrel {

using Platform::FileManager;
using Platform::PathKind;

bool Path::exists(const std::string& path)
{
    return FileManager::shared().kind(path) != PathKind::none;
}

bool Path::exists(const Url& location)
{
    return exists(location.path());
}

bool Path::isDirectory(const std::string& path)
{
    return FileManager::shared().kind(path) == PathKind::directory;
}

PathType Path::type(const std::string& path)
{
    switch (FileManager::shared().kind(path)) {
        case PathKind::none:
            return PathType::invalid;
        case PathKind::file:
            return PathType::file;
        case PathKind::directory:
            return PathType::directory;
    }
    return PathType::invalid;
}

std::uint64_t Path::size(const Url& folder)
{
    return Platform::totalFileSize(folder.path());
}

std::uint64_t Path::fileSize(const Url& file)
{
    const auto attributes = FileManager::shared().attributes(file.path());
    return attributes && !attributes->isDirectory() ? attributes->size : 0;
}

bool Path::remove(const Url& location)
{
    const auto removed = FileManager::shared().removeItem(location.path());
    if (!removed) printLine(removed.error());
    return !exists(location);
}

std::optional<Platform::Date> Path::date(const std::string& path, Platform::FileAttribute attribute)
{
    const auto attributes = FileManager::shared().attributes(path);
    return attributes ? attributes->date(attribute) : std::nullopt;
}

std::optional<Platform::Date> Path::creationDate(const std::string& path)
{
    return date(path, Platform::FileAttribute::creationDate);
}

std::optional<Platform::Date> Path::lastUsedDate(const std::string& path)
{
    if (!FileManager::shared().isReadable(path)) return std::nullopt;
    return Platform::lastUsedDate(path);
}

Platform::ImageRef Path::icon(const Url& file)
{
    const std::string extension = file.pathExtension();
    auto& icons = Platform::IconService::shared();
    if (Platform::OperatingSystemVersion::shared().isAtLeast(12)) {
        if (const auto type = Platform::typeIdentifierForExtension(extension)) return icons.iconForContentType(*type);
    }
    return icons.iconForFileType(extension);
}

}  // namespace Lorrel
