#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/cli/services.h>
#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/export.h>

// The three services of the domain. Each answers from the container that it is given and shares
// ownership of it; the container must not be null. An operation runs on the caller's thread and
// calls its result before it returns: once with the answer, or once with an error of one message.
// The activation is not looked at. Exceptions (no memory, an empty result) leave the operation.

namespace Zelk::Provider::Metadata::Cli {

namespace CommandSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// The commands directly in the namespace, or all without one, in walk order. NotFound for a
  /// namespace without commands of its own, whether it exists or not.
  void List(const boost::optional<std::string>& namespace_path,
            const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<
                std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::Identity>>>&
                result) override;

  /// The command of the first source that has it. NotFound, about its full name, when none has.
  void Get(const std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::Identity>&
               identity,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::CommandSvc::Info>>& result)
      override;

  /// The fingerprint of the commands of all sources.
  void Fingerprint(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace CommandSvc

namespace NamespaceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// All namespaces in walk order, the implied ones and the roots included.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<
                std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::Identity>>>&
                result) override;

  /// The namespace of the first source that has it. NotFound, about its full name, when none has.
  void Get(const std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::Identity>&
               identity,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::NamespaceSvc::Info>>&
               result) override;

  /// The fingerprint of the namespaces of all sources.
  void Fingerprint(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace NamespaceSvc

namespace SourceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public ::Com::Orvane::Zelk::Metadata::Cli::SourceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Loads a file and registers it. Success is delivered.
  void Create(
      const std::string& source_id,
      const std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::SourceSvc::CreateSpec>& spec,
      const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
      const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// NotFound for an unknown id. Success is delivered.
  void Delete(const std::string& source_id,
              const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// What the source was created with. NotFound for an unknown id.
  void Get(const std::string& source_id,
           const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
           const ::Zelk::AsyncResult<
               std::shared_ptr<const ::Com::Orvane::Zelk::Metadata::Cli::SourceSvc::Info>>& result)
      override;

  /// All source ids, ascending.
  void List(const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Reads one source's file again, or all. Success is delivered even where a file failed to load
  /// and left the old data.
  void Reload(const boost::optional<std::string>& source_id,
              const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// The fingerprint of one source, or of all. NotFound for an unknown id.
  void Fingerprint(const boost::optional<std::string>& source_id,
                   const std::shared_ptr<::Zelk::Core::AsyncActivation>& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace SourceSvc

}  // namespace Zelk::Provider::Metadata::Cli
