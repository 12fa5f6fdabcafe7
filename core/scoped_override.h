// Keeps a piece of state for the duration of a scope and puts it back on the way out, thrown or
// not.
#pragma once

#include <utility>

namespace tavimor {

// `ScopedOverride keep(s.DetailNow, 0)` sets DetailNow to 0 until the end of the scope;
// `ScopedOverride keep(s.Message)` only keeps it. The value is restored however the scope ends,
// so an engine that forces an option for its own duration never leaks it into the next command.
template <typename T>
class ScopedOverride {
 public:
  explicit ScopedOverride(T& place) : place_(place), kept_(place) {}
  ScopedOverride(T& place, T value) : place_(place), kept_(place) { place_ = std::move(value); }
  ~ScopedOverride() { place_ = std::move(kept_); }

  ScopedOverride(const ScopedOverride&) = delete;
  ScopedOverride& operator=(const ScopedOverride&) = delete;

  // The value the scope began with.
  const T& Kept() const { return kept_; }

 private:
  T& place_;
  T kept_;
};

template <typename T>
ScopedOverride(T&) -> ScopedOverride<T>;
template <typename T, typename U>
ScopedOverride(T&, U) -> ScopedOverride<T>;

}  // namespace tavimor
