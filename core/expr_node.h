// The tree node record, its codes, and the fixed pool of 1000 nodes that every tree is cut from.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>

#include "core/errors.h"

namespace tavimor {

// Index into the pool; 0 means no node, 1 is the head of the free list.
using NodeIdx = std::int16_t;

inline constexpr NodeIdx kNoNode = 0;
inline constexpr NodeIdx kFreeListHead = 1;
inline constexpr NodeIdx kLeftRoot = 2;   // the left side, or the expression
inline constexpr NodeIdx kRightRoot = 3;  // the right side; empty text for an expression
inline constexpr int kPoolSize = 1000;

// Kind codes.
inline constexpr char kKindSumOrProduct = ' ';
inline constexpr char kKindNumber = 'N';
inline constexpr char kKindVariable = 'V';
inline constexpr char kKindPower = 'P';
inline constexpr char kKindFunction = 'F';
inline constexpr char kKindBracket = '(';
inline constexpr char kKindHiddenBracket = '[';

// Role codes.
inline constexpr char kRoleNone = ' ';
inline constexpr char kRolePlus = '+';
inline constexpr char kRoleMinus = '-';
inline constexpr char kRoleLeadingPlus = '1';
inline constexpr char kRoleNumerator = 'N';
inline constexpr char kRoleDenominator = 'D';
inline constexpr char kRoleExponent = 'E';
inline constexpr char kRoleBase = 'B';

// A term of a sum: added, subtracted, or first with a typed plus.
inline bool IsSumRole(char role) { return role == '+' || role == '-' || role == '1'; }
// A factor of a product: numerator or denominator.
inline bool IsProductRole(char role) { return role == 'N' || role == 'D'; }
inline bool IsAsciiDigit(char c) { return c >= '0' && c <= '9'; }
inline bool IsAsciiLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

// The value evaluation leaves on a node: nothing, an integer, a real, or a complex value as text.
using NodeValue = std::variant<std::monostate, std::int32_t, double, std::string>;

struct ExprNode {
  NodeIdx Prev = 0;
  NodeIdx Next = 0;
  NodeIdx Parent = 0;  // held on the first child of a family only
  NodeIdx FirstChild = 0;
  char Kind = ' ';
  char Role = ' ';
  std::string Text;
  NodeValue Value = std::int32_t{0};  // survives FreeNode
  // Layout scratch of the typesetter.
  float X = 0.0f;
  float Y = 0.0f;
  float Width = 0.0f;
  float Height = 0.0f;
  float Base = 0.0f;
  float Scratch1 = 0.0f;
  float Scratch2 = 0.0f;
};

// Counts the steps of a walk along links; a walk longer than any tree of the pool can need has met
// links that loop, and raises the run-time error instead of hanging.
class WalkGuard {
 public:
  void Step() {
    if (++steps_ > 8 * kPoolSize) {
      throw RunTimeError(RunTimeErrorNumber::BrokenTree, "The links of a tree form a loop");
    }
  }

 private:
  int steps_ = 0;
};

// 1000 records with indices 1 to 1000. Every access is bounds-tested: an index of 0 or beyond
// 1000 raises the run-time error "Subscript out of range", which is also how a full pool fails.
class NodePool {
 public:
  NodePool() : records_(std::make_unique<Records>()) { Init(); }
  NodePool(const NodePool& other) : records_(std::make_unique<Records>(*other.records_)) {
    NodesInUse = other.NodesInUse;
    MaxNodesInUse = other.MaxNodesInUse;
    touched_ = other.touched_;
  }
  NodePool& operator=(const NodePool& other) {
    if (this != &other) {
      *records_ = *other.records_;
      NodesInUse = other.NodesInUse;
      MaxNodesInUse = other.MaxNodesInUse;
      touched_ = other.touched_;
    }
    return *this;
  }
  ~NodePool() = default;

  // Exchanges the whole contents of two pools without copying a record.
  void Swap(NodePool& other) noexcept {
    records_.swap(other.records_);
    std::swap(NodesInUse, other.NodesInUse);
    std::swap(MaxNodesInUse, other.MaxNodesInUse);
    std::swap(touched_, other.touched_);
  }

  // Chains all records through Prev and Next, index 1 being the head. Only the records written
  // since the last Init are reset: the others are as Init leaves them.
  void Init();

  // Notes that the record may have been written: Init resets it. The free list's operations call
  // it for every record they link; every other write goes to a node taken from the free list (or
  // to one of the fixed roots, which Init always resets).
  void Touch(NodeIdx n) {
    if (n > touched_) touched_ = n;
  }

  ExprNode& operator[](NodeIdx n) { return (*records_)[Check(n)]; }
  const ExprNode& operator[](NodeIdx n) const { return (*records_)[Check(n)]; }

  std::int16_t NodesInUse = 0;
  std::int16_t MaxNodesInUse = 0;

 private:
  static std::size_t Check(NodeIdx n) {
    if (n < 1 || n > kPoolSize) {
      throw RunTimeError(RunTimeErrorNumber::SubscriptOutOfRange, "Subscript out of range");
    }
    return static_cast<std::size_t>(n);
  }
  using Records = std::array<ExprNode, kPoolSize + 1>;  // record 0 is never reached
  std::unique_ptr<Records> records_;  // on the heap, so that two pools swap in a moment
  NodeIdx touched_ = kPoolSize;       // records beyond it are as Init leaves them
};

}  // namespace tavimor
