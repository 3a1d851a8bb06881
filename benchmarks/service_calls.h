#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Zelk::Benchmarks {

/// An operation of a service, and the container's operation that it answers from.
struct ServiceCall {
  std::string name;
  bool is_list;

  // Each does it as often as it is told, and succeeds.
  std::function<void(std::size_t)> ask_container;
  std::function<void(std::size_t)> ask_service;
};

/// Of all three domains, each with one file loaded.
std::vector<ServiceCall> ServiceCalls();

}  // namespace Zelk::Benchmarks
