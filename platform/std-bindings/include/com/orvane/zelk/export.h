#pragma once

/// Exports a declaration from libzelk-std-bindings; everything else in it is hidden.
#define ZELK_STD_BINDINGS_EXPORT __attribute__((visibility("default")))
