#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <iostream>
#include <memory>
#include <string>

#include <boost/none.hpp>
#include <gtest/gtest.h>

#include "fault/answer_text.h"
#include "fault/authentication_calls.h"
#include "fault/cli_calls.h"
#include "fault/injection.h"
#include "fault/metamodel_calls.h"
#include "support/file_text.h"
#include "support/source_dir.h"
#include "surface/domains_under_test.h"

namespace Zelk::Testing {

using DomainsWithoutMemory =
    testing::Types<MetamodelWithoutMemory, AuthenticationWithoutMemory, CliWithoutMemory>;

/// Two sources of a domain: the first has all that its format knows, the last a little of it.
template <typename Domain>
class FaultTest : public testing::Test {
 protected:
  using Spec = std::shared_ptr<const typename Domain::CreateSpec>;

  void TearDown() override {
    RecordProperty("injected_failures", std::to_string(injected_));
    std::cout << injected_ << " failures injected\n";
    AddToTotal(injected_);
  }

  /// A file in which everything is used.
  static std::string WholeFile() {
    return FileText(std::string(ZELK_SOURCE_DIR "/tests/data/fault/") + Domain::kDataFile);
  }

  /// The same file with other texts in it.
  static std::string EditedFile() {
    std::string text = WholeFile();
    for (auto place = text.find("before"); place != std::string::npos;
         place = text.find("before")) {
      text.replace(place, 6, "edited");
    }
    return text;
  }

  /// A small file of a record that no other file has.
  static std::string SmallFile() { return Domain::File("a record of the last source"); }

  static std::string EditedSmallFile() { return Domain::File("an edited record of it"); }

  /// What every query answers for every key.
  std::string State() const {
    std::string text;
    Domain::EachQuery(*sources_.Shared(), [&text](const std::string& name, const auto& query) {
      text += name + ": " + AnswerText(query()) + "\n";
    });
    return text;
  }

  /// Fails every allocation of a call; answers how often it was failed.
  std::size_t Fail(const FaultyCall& call) {
    const auto failures = FailEveryAllocation(call, [this] { return State(); });
    injected_ += failures;
    return failures;
  }

  /// Of the operations of `service_`.
  const Core::AsyncActivationPtr activation_;
  const Sources<Domain> sources_{{kFirstSource, WholeFile()}, {kLastSource, SmallFile()}};
  typename Domain::SourceService service_{sources_.Shared()};

 private:
  std::size_t injected_ = 0;
};

}  // namespace Zelk::Testing
