#pragma once

#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <boost/filesystem/operations.hpp>
#include <boost/filesystem/path.hpp>

namespace QV::Tests {

/// A folder of its own for one test, gone with all that is in it when the test ends.
class TemporaryFolder
{
public:
    TemporaryFolder()
        : _path(
              boost::filesystem::temp_directory_path() / boost::filesystem::unique_path("qv-%%%%-%%%%-%%%%"))
    {
        boost::filesystem::create_directories(_path);
    }
    ~TemporaryFolder()
    {
        boost::system::error_code error;
        boost::filesystem::remove_all(_path, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string getPath() const { return _path.native(); }
    std::string getPath(const std::string& name) const { return (_path / name).native(); }

    /// Writes a file and returns its path.
    std::string write(const std::string& name, const std::string& content) const
    {
        std::ofstream(getPath(name), std::ios::binary) << content;
        return getPath(name);
    }

    /// Names of what is in the folder, or in one below it; empty where there is no such folder.
    std::set<std::string> list(const std::string& folder = {}) const
    {
        std::set<std::string> names;
        boost::system::error_code error;
        for (const auto& entry : boost::filesystem::directory_iterator(_path / folder, error))
            names.insert(entry.path().filename().native());
        return names;
    }

private:
    boost::filesystem::path _path;
};

/// The content of a file; empty where it cannot be read.
inline std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

} // namespace QV::Tests
