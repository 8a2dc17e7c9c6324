#pragma once

#include <fstream>
#include <iosfwd>
#include <stdexcept>
#include <string>

#include <boost/filesystem/path.hpp>

namespace QV::Tool {

/// An output could not be written; says which, and why.
class OutputError : public std::runtime_error
{
public:
    OutputError(const std::string& name, const std::string& reason);
};

/// An output that appears under its name only when it is complete: it grows beside it and is renamed at the
/// end. The name "-" is standard output; what is no regular file (a pipe, say) is written straight to. A
/// symbolic link stays one: the file that it leads to is replaced.
class OutputFile
{
public:
    /// Throws OutputError where the file cannot be made.
    explicit OutputFile(const std::string& name);
    /// Takes away what was not committed.
    ~OutputFile();

    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    std::ostream& getStream();

    /// Ends the writing; throws OutputError where anything of it could not be written.
    void complete();

    /// Gives a completed output its name; throws OutputError where that fails.
    void commit();

private:
    std::string _name;
    boost::filesystem::path _target; // the name, symbolic links followed
    std::string _temporaryName;      // empty where the output is written straight to
    std::ofstream _file;
};

} // namespace QV::Tool
