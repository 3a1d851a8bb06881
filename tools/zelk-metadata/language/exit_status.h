#pragma once

namespace Zelk::Tool {

/// What the exit status of the process means. The numbers are stable: scripts test them.
///
/// When several apply, wrong words come first, since then nothing was done, and then kOutputLost. A
/// failed source comes before the others: what was not found may have been in it.
enum class ExitStatus {
  kOk = 0,
  /// A source failed to load, or `check` found an error. The rest was done all the same.
  kSourceFailed = 1,
  /// The arguments make no sense.
  kUsage = 2,
  /// The kind, or what the ids name, is not known.
  kNotFound = 3,
  /// The output could not be written or memory ran out, so it is not whole.
  kOutputLost = 4,
  /// `lint` or `diff` found something at or above --fail-on.
  kFound = 5,
};

}  // namespace Zelk::Tool
