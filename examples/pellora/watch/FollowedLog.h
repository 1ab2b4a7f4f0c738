#pragma once

#include <memory>
#include <optional>
#include <string>

#include <sys/types.h>

#include "Fennick/datastore/StringIdentifier.h"
#include "Lorrel/files/FileMonitor.h"
#include "examples/pellora/providers/Provider.h"

namespace Pellora {

// The last line of a growing file ("log"), with the number of lines that came
// since the last update behind it. A file that is missing, or has been put in
// the place of the followed one, is opened within seconds.
class FollowedLog final : public Provider,
                          public Lorrel::FileMonitorDelegate,
                          public std::enable_shared_from_this<FollowedLog> {
public:
    static std::shared_ptr<FollowedLog> create(std::string path);

    void update(double elapsed) override;
    void didAppend(const std::string& appended) override;

private:
    struct FileIdentity {
        dev_t device = 0;
        ino_t inode = 0;
        friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
    };

    explicit FollowedLog(std::string path);
    std::optional<FileIdentity> identityAtPath() const;
    void openIfReplaced();

    const std::string path_;
    const std::shared_ptr<Fennick::StringIdentifier> reading_;
    std::shared_ptr<Lorrel::FileMonitor> monitor_;
    std::optional<FileIdentity> opened_;
    std::optional<std::string> lastLine_;
    long newLines_ = 0;
    double sinceLook_ = 0;
};

// The last line of a text that is not blank, cut to a length fit to be shown;
// control characters become blanks. Absent when all lines are blank.
std::optional<std::string> shownLine(std::string_view text);

}  // namespace Pellora
