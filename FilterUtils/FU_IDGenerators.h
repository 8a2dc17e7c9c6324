#pragma once

/// @file
/// Sources of fresh identifiers: of any kind behind one interface, and short running ones for writers.

#include <memory>
#include <string>

#include <FilterUtils/FU_Export.h>

namespace QV::FilterUtils {

/// Makes identifiers as text, without telling how. One thread at a time.
class FILTERUTILS_API IDGenerator
{
public:
    /// An identifier that this generator has not returned before.
    virtual std::string generateId() = 0;

    virtual ~IDGenerator();
};

/// A generator of random UUIDs in their text form, 36 characters. This is what names stored media by default.
FILTERUTILS_API std::unique_ptr<IDGenerator> makeUUIDIDGenerator();

/// Running numbers.
///
///     NumberIdGenerator ids(0);
///     ids.generateId(); // 1
///     ids.generateId(); // 2
///
/// A copy goes on from the same number by itself.
class FILTERUTILS_API NumberIdGenerator
{
public:
    /// The first number that is returned is the one after @p start.
    explicit NumberIdGenerator(unsigned int start);

    /// The last number plus one; 0 after 4294967295.
    unsigned int generateId();

private:
    unsigned int _lastNumber;
};

/// A prefix with running numbers from 1, as names inside of packages are made.
///
///     StringIdGenerator ids("rId");
///     ids.generateId(); // "rId1"
///     ids.generateId(); // "rId2"
class FILTERUTILS_API StringIdGenerator
{
public:
    explicit StringIdGenerator(std::string prefix);

    /// The prefix and the next number in decimal, with nothing between.
    std::string generateId();

private:
    std::string _prefix;
    NumberIdGenerator _numbers;
};

} // namespace QV::FilterUtils
