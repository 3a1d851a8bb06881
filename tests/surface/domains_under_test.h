#pragma once

#include <string>

#include <gtest/gtest.h>

#include "surface/authentication_under_test.h"
#include "surface/cli_under_test.h"
#include "surface/metamodel_under_test.h"

namespace Zelk::Testing {

/// The domains that do the same with their sources.
using DomainsUnderTest = testing::Types<MetamodelUnderTest, AuthenticationUnderTest, CliUnderTest>;

/// Names the tests of a domain after it.
struct DomainName {
  template <typename Domain>
  static std::string GetName(int /*index*/) {
    return Domain::kName;
  }
};

}  // namespace Zelk::Testing
