#pragma once

#include <list>
#include <memory>
#include <string>

#include <boost/optional.hpp>

#include <com/orvane/zelk/export.h>
#include <com/orvane/zelk/metadata/cli/records.h>
#include <zelk/async_result.h>
#include <zelk/core/async_activation.h>

// The interfaces of the CLI domain's services, as a provider implements them. Each operation gets
// its own arguments, the activation that it is called for, and the result that it calls with the
// answer or an error. "or NotFound" means: delivers the error NotFound if the id is unknown. The
// order of the operations in a class is part of the binary interface.

namespace Com::Orvane::Zelk::Metadata::Cli {

namespace CommandSvc {

/// The commands that a command-line client offers.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers the commands directly in the namespace, or without one all commands. NotFound for a
  /// namespace without any.
  virtual void List(
      const boost::optional<std::string>& namespace_path,
      const ::Zelk::Core::AsyncActivationPtr& activation,
      const ::Zelk::AsyncResult<std::list<std::shared_ptr<const CommandSvc::Identity>>>&
          result) = 0;

  /// Delivers the command with its options and output, or NotFound.
  virtual void Get(const std::shared_ptr<const CommandSvc::Identity>& identity,
                   const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const CommandSvc::Info>>& result) = 0;

  /// Delivers the fingerprint of all commands together.
  virtual void Fingerprint(const ::Zelk::Core::AsyncActivationPtr& activation,
                           const ::Zelk::AsyncResult<std::string>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace CommandSvc

namespace NamespaceSvc {

/// The namespaces in which the commands are grouped.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Delivers all namespaces, once for each source that has them.
  virtual void List(
      const ::Zelk::Core::AsyncActivationPtr& activation,
      const ::Zelk::AsyncResult<std::list<std::shared_ptr<const NamespaceSvc::Identity>>>&
          result) = 0;

  /// Delivers the namespace with its children, or NotFound.
  virtual void Get(
      const std::shared_ptr<const NamespaceSvc::Identity>& identity,
      const ::Zelk::Core::AsyncActivationPtr& activation,
      const ::Zelk::AsyncResult<std::shared_ptr<const NamespaceSvc::Info>>& result) = 0;

  /// Delivers the fingerprint of all namespaces together.
  virtual void Fingerprint(const ::Zelk::Core::AsyncActivationPtr& activation,
                           const ::Zelk::AsyncResult<std::string>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace NamespaceSvc

namespace SourceSvc {

/// The sources from which the domain is loaded.
class ZELK_STD_BINDINGS_EXPORT AsyncServiceInterface {
 public:
  /// Loads a source and registers it, or delivers the error.
  virtual void Create(const std::string& source_id,
                      const std::shared_ptr<const SourceSvc::CreateSpec>& spec,
                      const ::Zelk::Core::AsyncActivationPtr& activation,
                      const ::Zelk::AsyncResult<::Zelk::Void>& result) = 0;

  /// Removes a source and everything that came from it, or delivers NotFound.
  virtual void Delete(const std::string& source_id,
                      const ::Zelk::Core::AsyncActivationPtr& activation,
                      const ::Zelk::AsyncResult<::Zelk::Void>& result) = 0;

  /// Delivers what the source was created with, or NotFound.
  virtual void Get(const std::string& source_id, const ::Zelk::Core::AsyncActivationPtr& activation,
                   const ::Zelk::AsyncResult<std::shared_ptr<const SourceSvc::Info>>& result) = 0;

  /// Delivers the ids of all sources, ascending.
  virtual void List(const ::Zelk::Core::AsyncActivationPtr& activation,
                    const ::Zelk::AsyncResult<std::list<std::string>>& result) = 0;

  /// Loads one source again, or without an id all of them. NotFound for an unknown id.
  virtual void Reload(const boost::optional<std::string>& source_id,
                      const ::Zelk::Core::AsyncActivationPtr& activation,
                      const ::Zelk::AsyncResult<::Zelk::Void>& result) = 0;

  /// Delivers the fingerprint of one source, or without an id that of all together, or NotFound.
  virtual void Fingerprint(const boost::optional<std::string>& source_id,
                           const ::Zelk::Core::AsyncActivationPtr& activation,
                           const ::Zelk::AsyncResult<std::string>& result) = 0;

  virtual ~AsyncServiceInterface();
};

}  // namespace SourceSvc

}  // namespace Com::Orvane::Zelk::Metadata::Cli
