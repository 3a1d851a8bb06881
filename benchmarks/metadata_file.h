#pragma once

#include <cstddef>
#include <string>

#include "domain_id.h"
#include "json_writer.h"

namespace Zelk::Benchmarks {

/// A file of interface descriptions, in the proportions of those that components ship: about half
/// of a Metamodel file is documentation.
struct FileSpec {
  DomainId domain;
  /// The file becomes this long or a little longer: its last record is finished.
  std::size_t bytes;
  Layout layout;
  /// Files of different numbers describe different components, and share no name.
  std::size_t number;
};

/// The same text for the same spec, on every machine.
std::string MetadataFile(const FileSpec& spec);

/// What MetadataFile() consists of; each in a file of its own.
std::string MetamodelFile(const FileSpec& spec);
std::string AuthenticationFile(const FileSpec& spec);
std::string CliFile(const FileSpec& spec);

}  // namespace Zelk::Benchmarks
