#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/metadata/cli/services.h>
#include <zelk/provider/metadata/cli/metadata_container.h>
#include <zelk/provider/metadata/export.h>

// The three services of the domain. Each one uses the container that it is given and shares
// ownership of it. The container must not be null.
//
// Calls: an operation runs on the caller's thread and calls its result before it returns, once,
// with the answer or with an error. Success of Create, Delete and Reload is an answer too.
//
// Errors: an error has one message, with two exceptions, both of SourceSvc Create. When a file
// cannot be parsed, the error has a message for each problem found. When the spec is null or not
// for a local file, the error has no message. <zelk/data/values.h> shows how to read an error.
//
// Exceptions: an operation lets through std::bad_alloc, std::bad_function_call (the result has no
// callback) and whatever the callback throws.
//
// Threads: nothing is locked. Create, Delete and Reload of SourceSvc must not run at the same time
// as any other operation on the same container; all other operations may run at the same time.
//
// The activation is not used.

namespace Zelk::Provider::Metadata::Cli {

namespace CommandSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Cli::CommandSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the identities of the commands directly in the namespace, or without one those of all
  /// commands, in walk order. NotFound if the namespace has no commands of its own, even if it
  /// exists.
  void List(
      const boost::optional<std::string>& namespace_path,
      const ::Zelk::Core::AsyncActivationPtr& activation,
      const ::Zelk::AsyncResult<
          std::list<std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>>>& result) override;

  /// Delivers the command from the first source that has it. NotFound, with its full name as
  /// argument, if none has it.
  void Get(const std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>& identity,
           const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Cli::CommandSvc::Info>>&
               result) override;

  /// Delivers the fingerprint (32 hex digits) of the commands of all sources.
  void Fingerprint(const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace CommandSvc

namespace NamespaceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Cli::NamespaceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Delivers the identities of all namespaces in walk order, including those that only a path
  /// implies and the root of each source.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<
                std::list<std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>>>& result)
      override;

  /// Delivers the namespace from the first source that has it, with the children that this source
  /// knows. NotFound, with its full name as argument, if none has it.
  void Get(const std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>& identity,
           const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Cli::NamespaceSvc::Info>>&
               result) override;

  /// Delivers the fingerprint (32 hex digits) of the namespaces of all sources.
  void Fingerprint(const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace NamespaceSvc

namespace SourceSvc {

class ZELK_METADATA_SERVICES_EXPORT AsyncServiceImpl final
    : public Bindings::Cli::SourceSvc::AsyncServiceInterface {
 public:
  explicit AsyncServiceImpl(std::shared_ptr<MetadataContainer> container);

  /// Loads a file and registers it as `source_id`. Delivers success, or an error; see
  /// MetadataContainer::CreateSource for them.
  void Create(const std::string& source_id,
              const std::shared_ptr<const Bindings::Cli::SourceSvc::CreateSpec>& spec,
              const ::Zelk::Core::AsyncActivationPtr& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// Removes the source and everything that came from it. Delivers success, or NotFound for an
  /// unknown id.
  void Delete(const std::string& source_id, const ::Zelk::Core::AsyncActivationPtr& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// Delivers what the source was created with, or NotFound.
  void Get(const std::string& source_id, const ::Zelk::Core::AsyncActivationPtr& activation,
           const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Cli::SourceSvc::Info>>& result)
      override;

  /// Delivers the ids of all sources, ascending.
  void List(const ::Zelk::Core::AsyncActivationPtr& activation,
            const ::Zelk::AsyncResult<std::list<std::string>>& result) override;

  /// Reads the file of one source again, or without an id those of all sources. A source whose file
  /// cannot be loaded keeps its old data, and success is delivered all the same; see
  /// MetadataContainer::ReloadSource. Delivers NotFound for an unknown id.
  void Reload(const boost::optional<std::string>& source_id,
              const ::Zelk::Core::AsyncActivationPtr& activation,
              const ::Zelk::AsyncResult<::Zelk::Void>& result) override;

  /// Delivers the fingerprint (32 hex digits) of one source, or NotFound. Without an id, delivers
  /// the fingerprint of all sources together.
  void Fingerprint(const boost::optional<std::string>& source_id,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::string>& result) override;

  ~AsyncServiceImpl() override;

 private:
  std::shared_ptr<MetadataContainer> container_;
};

}  // namespace SourceSvc

}  // namespace Zelk::Provider::Metadata::Cli
