#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <zelk/provider/metadata/authentication/metadata_container.h>
#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/metamodel/metadata_container.h>

#include "domain_id.h"

namespace Zelk::Benchmarks {

/// Loads files into a container of some domain, as hosts do. The sources' ids ascend in the order
/// in which they were added.
class Host {
 public:
  virtual ~Host() = default;

  /// Prepares a source, so that what is timed is only the load.
  virtual void Add(const std::string& path) = 0;

  /// Creates every source that was added and is not there yet.
  virtual void CreateAll() = 0;

  virtual void DeleteAll() = 0;
};

struct MetamodelDomain {
  using Container = Provider::Metadata::Metamodel::MetadataContainer;
  using CreateSpec = ::Com::Orvane::Zelk::Metadata::Metamodel::SourceSvc::CreateSpec;
};

struct AuthenticationDomain {
  using Container = Provider::Metadata::Authentication::MetadataContainer;
  using CreateSpec = ::Com::Orvane::Zelk::Metadata::Authentication::SourceSvc::CreateSpec;
};

struct CliDomain {
  using Container = Provider::Metadata::Cli::MetadataContainer;
  using CreateSpec = ::Com::Orvane::Zelk::Metadata::Cli::SourceSvc::CreateSpec;
};

template <typename Domain>
class HostOf final : public Host {
 public:
  HostOf() : container_(Domain::Container::GetInstance()) {}

  void Add(const std::string& path) override {
    using ::Com::Orvane::Zelk::Metadata::SourceType;
    char id[32];
    std::snprintf(id, sizeof id, "source-%06zu", sources_.size());
    sources_.push_back({id, std::make_shared<const typename Domain::CreateSpec>(
                                "", SourceType(SourceType::LOCAL_FILE), path, boost::none)});
  }

  void CreateAll() override {
    for (; created_ < sources_.size(); ++created_) {
      const Source& source = sources_[created_];
      if (container_->CreateSource(source.id, source.spec) != nullptr) {
        throw std::runtime_error("a file that was made here is refused: " +
                                 *source.spec->file_path);
      }
    }
  }

  void DeleteAll() override {
    for (const Source& source : sources_) container_->DeleteSource(source.id);
    created_ = 0;
  }

  const std::shared_ptr<typename Domain::Container>& Container() const { return container_; }

 private:
  struct Source {
    std::string id;
    std::shared_ptr<const typename Domain::CreateSpec> spec;
  };

  std::shared_ptr<typename Domain::Container> container_;
  std::vector<Source> sources_;
  std::size_t created_ = 0;
};

std::unique_ptr<Host> MakeHost(DomainId domain);

/// With all of `paths` added.
std::unique_ptr<Host> MakeHost(DomainId domain, const std::vector<std::string>& paths);

}  // namespace Zelk::Benchmarks
