// The two kinds of failure a command can meet: run-time errors and the system's numbered errors.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace tavimor {

// Numbers of the run-time errors, as the command frames know them.
enum class RunTimeErrorNumber : int {
  InvalidCall = 5,          // a root or logarithm outside its domain
  Overflow = 6,             // 16- or 32-bit arithmetic out of range
  SubscriptOutOfRange = 9,  // a node index outside the pool, or a full table
  DivisionByZero = 11,
  BrokenTree = 51,  // links of a tree that loop or lead nowhere
};

// A run-time error: caught by the frame of the running command, which reports it with the
// command's own message and restores the work item.
class RunTimeError : public std::runtime_error {
 public:
  RunTimeError(RunTimeErrorNumber number, const std::string& what)
      : std::runtime_error(what), number_(number) {}
  RunTimeErrorNumber Number() const { return number_; }

 private:
  RunTimeErrorNumber number_;
};

// The system's own error numbers.
inline constexpr std::uint32_t kErrorCancel = 0x80045401u;        // the student stopped the run
inline constexpr std::uint32_t kErrorLogZero = 0x80045402u;       // log(0)
inline constexpr std::uint32_t kErrorLnZero = 0x80045403u;        // ln(0)
inline constexpr std::uint32_t kErrorTangent = 0x80045404u;       // tan at a pole
inline constexpr std::uint32_t kErrorZeroPower = 0x80045405u;     // 0^n with n <= 0
inline constexpr std::uint32_t kErrorZeroOverZero = 0x80045406u;  // 0/0

// An application error with one of the numbers 0x80045401 to 0x80045406.
class AppError : public std::runtime_error {
 public:
  AppError(std::uint32_t number, const std::string& what)
      : std::runtime_error(what), number_(number) {}
  std::uint32_t Number() const { return number_; }

 private:
  std::uint32_t number_;
};

}  // namespace tavimor
