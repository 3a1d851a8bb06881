#pragma once

/// Marks what libzelk-core offers to other binaries; everything else in it is built hidden.
#define ZELK_CORE_EXPORT __attribute__((visibility("default")))
