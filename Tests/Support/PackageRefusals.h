#pragma once

#include <cstddef>
#include <functional>
#include <iterator>
#include <string>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>

namespace QV::Tests {

/// The whole content of a part.
inline std::string readPart(Filters::Package& package, const std::string& name)
{
    const auto stream = package.openPart(name);
    return {std::istreambuf_iterator<char>(*stream), {}};
}

/// What an action was refused with.
struct Refusal
{
    Filters::PackageError::Kind kind;
    std::string part;
    std::string message;
};

/// The PackageError that an action ends in, if it does.
inline boost::optional<Refusal> findRefusal(const std::function<void()>& action)
{
    try {
        action();
    } catch (const Filters::PackageError& error) {
        return Refusal{error.getKind(), error.getPart(), error.what()};
    }
    return boost::none;
}

/// Fails the test where the action does not end in exactly this PackageError.
inline void expectRefusal(const std::function<void()>& action, Filters::PackageError::Kind kind,
    const std::string& part, const std::string& message)
{
    const auto refusal = findRefusal(action);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, kind);
    EXPECT_EQ(refusal->part, part);
    EXPECT_EQ(refusal->message, message);
}

/// Bytes that deflate cannot shorten.
inline std::string makeNoise(std::size_t size)
{
    std::string noise;
    for (unsigned state = 1; noise.size() < size;) {
        state = state * 1664525U + 1013904223U;
        noise += static_cast<char>(state >> 24U);
    }
    return noise;
}

} // namespace QV::Tests
