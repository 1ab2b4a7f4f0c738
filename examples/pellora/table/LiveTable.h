#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Fennick/datastore/IDataProviderContainer.h"

namespace Pellora {

// Where a table is printed.
struct TableOutput {
    std::FILE* file = stdout;
    bool isTerminal = false;  // rewritten in place, with graphs
    std::size_t lines = 24;   // of the terminal
    std::size_t columns = 80;

    static TableOutput standardOutput();
};

// Prints the readings after every refresh: on a terminal as one live table that
// is no larger than the terminal, else as plain lines, refresh by refresh.
// Thread: the one that refreshes.
class LiveTable final : public Fennick::DataProviderContainerDelegate {
public:
    using Keys = std::function<std::vector<std::string>()>;

    // Asks for the keys at each refresh. Calls `atEnd` after so many refreshes (0 for never).
    LiveTable(std::shared_ptr<Fennick::IDataStore> readings, Keys keys, TableOutput output, std::size_t refreshes,
              std::function<void()> atEnd);

    void didRefresh(double elapsed) override;

private:
    void redraw(const std::string& heading);
    void append(const std::string& heading);

    const std::shared_ptr<Fennick::IDataStore> readings_;
    const Keys keys_;
    const TableOutput output_;
    const std::size_t refreshes_;
    const std::function<void()> atEnd_;
    std::size_t count_ = 0;
    std::size_t drawnLines_ = 0;
};

}  // namespace Pellora
