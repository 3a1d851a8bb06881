#pragma once

/// Marks what this library offers to its host; everything else stays hidden inside it.
#define ZELK_METADATA_SERVICES_EXPORT __attribute__((visibility("default")))
