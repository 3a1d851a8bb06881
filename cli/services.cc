#include <zelk/provider/metadata/cli/services.h>

#include "common/queries/service_frame.h"

namespace Zelk::Provider::Metadata::Cli {

namespace Bindings = ::Com::Orvane::Zelk::Metadata;
using Activation = std::shared_ptr<::Zelk::Core::AsyncActivation>;

namespace {

/// Returns the name of a namespace or a command in messages; empty for a null identity.
template <typename Identity>
std::string FullName(const std::shared_ptr<const Identity>& identity) {
  if (!identity) return std::string();
  return identity->path.empty() ? identity->name : identity->path + '.' + identity->name;
}

/// Delivers a namespace or a command, or for null NotFound with its full name. The name is made
/// only for the message.
template <typename Info, typename Identity>
void DeliverNode(const ::Zelk::AsyncResult<std::shared_ptr<const Info>>& result,
                 const std::shared_ptr<const Info>& node, const char* message_id,
                 const std::shared_ptr<const Identity>& identity) {
  if (node) {
    result(node);
  } else {
    result.error(MakeError<StdErrors::NotFound>(message_id, FullName(identity)));
  }
}

}  // namespace

namespace CommandSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(
    const boost::optional<std::string>& namespace_path, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<
        std::list<std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>>>& result) {
  const auto commands = container_->ListCommands(namespace_path);
  // Intended(cli-namespace-without-commands): a namespace without commands of its own is reported
  // in the same way as an unknown one.
  if (namespace_path && commands.empty()) {
    result.error(MakeError<StdErrors::NotFound>(MessageId::kCliNamespaceNotFound, *namespace_path));
  } else {
    result(commands);
  }
}

void AsyncServiceImpl::Get(
    const std::shared_ptr<const Bindings::Cli::CommandSvc::Identity>& identity,
    const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Cli::CommandSvc::Info>>& result) {
  DeliverNode(result, container_->CommandInfo(identity), MessageId::kCliCommandNotFound, identity);
}

void AsyncServiceImpl::Fingerprint(const Activation& /*activation*/,
                                   const ::Zelk::AsyncResult<std::string>& result) {
  result(container_->CommandFingerprint());
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace CommandSvc

namespace NamespaceSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::List(
    const Activation& /*activation*/,
    const ::Zelk::AsyncResult<
        std::list<std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>>>& result) {
  result(container_->ListNamespaces());
}

void AsyncServiceImpl::Get(
    const std::shared_ptr<const Bindings::Cli::NamespaceSvc::Identity>& identity,
    const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Cli::NamespaceSvc::Info>>& result) {
  DeliverNode(result, container_->NamespaceInfo(identity), MessageId::kCliNamespaceNotFound,
              identity);
}

void AsyncServiceImpl::Fingerprint(const Activation& /*activation*/,
                                   const ::Zelk::AsyncResult<std::string>& result) {
  result(container_->NamespaceFingerprint());
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace NamespaceSvc

namespace SourceSvc {

AsyncServiceImpl::AsyncServiceImpl(std::shared_ptr<MetadataContainer> container)
    : container_(std::move(container)) {}

void AsyncServiceImpl::Create(
    const std::string& source_id,
    const std::shared_ptr<const Bindings::Cli::SourceSvc::CreateSpec>& spec,
    const Activation& /*activation*/, const ::Zelk::AsyncResult<::Zelk::Void>& result) {
  DeliverChange(result, container_->CreateSource(source_id, spec), OnSuccess::kDeliver);
}

void AsyncServiceImpl::Delete(const std::string& source_id, const Activation& /*activation*/,
                              const ::Zelk::AsyncResult<::Zelk::Void>& result) {
  DeliverChange(result, container_->DeleteSource(source_id), OnSuccess::kDeliver);
}

void AsyncServiceImpl::Get(
    const std::string& source_id, const Activation& /*activation*/,
    const ::Zelk::AsyncResult<std::shared_ptr<const Bindings::Cli::SourceSvc::Info>>& result) {
  DeliverOrNotFound(result, container_->SourcesInfo(source_id), MessageId::kCliSourceNotFound,
                    source_id);
}

void AsyncServiceImpl::List(const Activation& /*activation*/,
                            const ::Zelk::AsyncResult<std::list<std::string>>& result) {
  result(container_->ListSources());
}

void AsyncServiceImpl::Reload(const boost::optional<std::string>& source_id,
                              const Activation& /*activation*/,
                              const ::Zelk::AsyncResult<::Zelk::Void>& result) {
  DeliverChange(result, container_->ReloadSource(source_id), OnSuccess::kDeliver);
}

void AsyncServiceImpl::Fingerprint(const boost::optional<std::string>& source_id,
                                   const Activation& /*activation*/,
                                   const ::Zelk::AsyncResult<std::string>& result) {
  DeliverOrNotFound(result, container_->SourceFingerprint(source_id), MessageId::kCliSourceNotFound,
                    source_id);
}

AsyncServiceImpl::~AsyncServiceImpl() = default;

}  // namespace SourceSvc

}  // namespace Zelk::Provider::Metadata::Cli
