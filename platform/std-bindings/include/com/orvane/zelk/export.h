#pragma once

/// Marks what libzelk-std-bindings offers to other binaries; everything else in it is built hidden.
#define ZELK_STD_BINDINGS_EXPORT __attribute__((visibility("default")))
