#pragma once

/// Exports a declaration from libzelk-core; everything else in it is hidden.
#define ZELK_CORE_EXPORT __attribute__((visibility("default")))
