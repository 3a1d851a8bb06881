#pragma once

#include <google/protobuf/descriptor.pb.h>
#include <string>

#include <com/orvane/zelk/metadata/metamodel/records.h>

namespace Zelk::Benchmarks {

/// The interfaces of a component as protobuf describes them, with nothing of the text left out:
/// structures are messages, the parameters and the result of an operation as well, and what has no
/// place of its own (errors, annotations, constants) is in the comments, as the documentation is.
google::protobuf::FileDescriptorProto DescriptorsOf(
    const ::Com::Orvane::Zelk::Metadata::Metamodel::ComponentInfo& component);

/// What a structure, enumeration or service of that id is called there. Components' names have
/// three parts.
std::string DescriptorName(const std::string& id);

}  // namespace Zelk::Benchmarks
