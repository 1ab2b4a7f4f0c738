#include "tests/support/TemporaryDirectory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "tests/support/ChildProcess.h"

namespace Tests {

namespace fs = std::filesystem;

TemporaryDirectory::TemporaryDirectory()
{
    std::string name = fs::canonical(fs::temp_directory_path()) / "pellora-XXXXXX";
    if (!::mkdtemp(name.data())) throw std::system_error(errno, std::generic_category(), "mkdtemp " + name);
    path_ = name;
}

TemporaryDirectory::~TemporaryDirectory()
{
    std::error_code failure;
    fs::remove_all(path_, failure);
    if (!failure) return;
    ChildProcess({"chmod", "-R", "u+rwx", path_}).wait();
    fs::remove_all(path_, failure);
}

std::string TemporaryDirectory::operator/(std::string_view name) const
{
    return path_ + '/' + std::string(name);
}

std::string TemporaryDirectory::write(std::string_view name, std::string_view content) const
{
    const std::string file = *this / name;
    fs::create_directories(fs::path(file).parent_path());
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    out.close();
    if (!out) throw std::runtime_error("cannot write " + file);
    return file;
}

std::string TemporaryDirectory::makeFolder(std::string_view name) const
{
    const std::string folder = *this / name;
    fs::create_directories(folder);
    return folder;
}

std::string contentOf(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace Tests
