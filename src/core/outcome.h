#pragma once

namespace kestrune::core {

/// Says in the open that a failure is meant to have no consequence here.
template <typename T>
void Ignore(const T& /*outcome*/) {}

}  // namespace kestrune::core
