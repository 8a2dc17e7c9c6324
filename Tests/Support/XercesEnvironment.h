#pragma once

// Include this where tests read XML: Xerces is initialised before the first test and terminated after the
// last.

#include <gtest/gtest.h>
#include <xercesc/util/PlatformUtils.hpp>

namespace QV::Tests {

class XercesEnvironment : public testing::Environment
{
public:
    void SetUp() override { xercesc::XMLPlatformUtils::Initialize(); }
    void TearDown() override { xercesc::XMLPlatformUtils::Terminate(); }
};

// GoogleTest owns it.
inline const testing::Environment* const TheXercesEnvironment =
    testing::AddGlobalTestEnvironment(new XercesEnvironment);

} // namespace QV::Tests
