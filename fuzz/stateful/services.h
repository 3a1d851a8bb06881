#pragma once

#include <memory>
#include <string>

#include <boost/optional.hpp>

#include "stateful/disk.h"
#include "stateful/questions.h"

namespace Zelk::Fuzzing {

/// What a source is created with. The type is 0 for a local file, 1 for a remote one, 2 for
/// neither.
struct Spec {
  std::string description;
  int type = 0;
  boost::optional<std::string> file_path;
  boost::optional<std::string> address;
};

/// The services of one domain, whose answers are text: of the library, and of the model that says
/// what the library must answer.
class Services {
 public:
  Services() = default;
  Services(const Services&) = delete;
  Services& operator=(const Services&) = delete;
  virtual ~Services() = default;

  virtual std::string Create(const std::string& id, const Spec& spec) = 0;
  virtual std::string Delete(const std::string& id) = 0;
  virtual std::string Reload(const boost::optional<std::string>& id) = 0;
  virtual std::string Ask(const Question& question) = 0;
};

std::unique_ptr<Services> MetamodelLibrary();
std::unique_ptr<Services> AuthenticationLibrary();
std::unique_ptr<Services> CliLibrary();

// The disk must outlive the model.
std::unique_ptr<Services> MetamodelModel(const Disk& disk);
std::unique_ptr<Services> AuthenticationModel(const Disk& disk);
std::unique_ptr<Services> CliModel(const Disk& disk);

}  // namespace Zelk::Fuzzing
