// The list editor's state and operations: load, new, edit, cut, copy, paste, moves, promote and
// demote, and the rebuilding of the flat list when the editor closes.
#include "shell/list_editor.h"

#include <algorithm>
#include <utility>

#include "shell/algebra_file.h"

namespace tavimor {
namespace {

constexpr std::string_view kTopicKey = "Topic:";
constexpr std::string_view kSubTopKey = "SubTop:";
constexpr std::string_view kEqnKey = "Eqn:";
constexpr std::string_view kCommentKey = "Comment:";

bool Starts(const std::string& entry, std::string_view key) {
  return entry.compare(0, key.size(), key) == 0;
}

bool IsKeyEntry(const std::string& entry) {
  return Starts(entry, kTopicKey) || Starts(entry, kSubTopKey) || Starts(entry, kEqnKey);
}

std::string After(const std::string& entry, std::string_view key) {
  return entry.size() > key.size() ? entry.substr(key.size()) : std::string();
}

// The comment behind entry `i`: the next entry's text when it is a comment.
std::string CommentBehind(const std::vector<std::string>& entries, std::size_t i) {
  if (i + 1 < entries.size() && Starts(entries[i + 1], kCommentKey)) {
    return After(entries[i + 1], kCommentKey);
  }
  return {};
}

constexpr std::size_t kIndentLength = std::char_traits<char>::length(kSubTopicIndent);

bool IsSubTopic(const std::string& line) {
  return line.compare(0, kIndentLength, kSubTopicIndent) == 0;
}

// A subtopic's line made a topic's; false when it was one already.
bool Unindent(std::string& line) {
  if (!IsSubTopic(line)) return false;
  line.erase(0, kIndentLength);
  return true;
}

// Swaps element i with its neighbour in `direction`; false at either end.
template <typename T>
bool SwapWithNeighbour(std::vector<T>& items, int i, int direction) {
  const int j = i + direction;
  if (i < 0 || j < 0 || i >= static_cast<int>(items.size()) ||
      j >= static_cast<int>(items.size())) {
    return false;
  }
  std::swap(items[static_cast<std::size_t>(i)], items[static_cast<std::size_t>(j)]);
  return true;
}

}  // namespace

std::vector<std::string> InputListModern(const std::vector<std::string>& entries) {
  std::vector<std::string> out;
  out.reserve(entries.size() * 2);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    out.push_back(entries[i]);
    const bool followed = i + 1 < entries.size() && Starts(entries[i + 1], kCommentKey);
    if (IsKeyEntry(entries[i]) && !followed) out.emplace_back(kCommentKey);
  }
  return out;
}

bool SameLists(const std::vector<std::string>& a, const std::vector<std::string>& b) {
  if (a.size() != b.size()) return false;
  return std::equal(a.begin(), a.end(), b.begin());
}

ListEditor::ListEditor(Session& s) : s_(s) {
  s_.ListEntries = InputListModern(s_.ListEntries);
  backup_ = s_.ListEntries;
  boxes_.emplace_back();
  const std::vector<std::string>& entries = s_.ListEntries;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::string& entry = entries[i];
    if (Starts(entry, kTopicKey)) {
      topics_.push_back({After(entry, kTopicKey), PutStuff(CommentBehind(entries, i))});
      boxes_.emplace_back();
    } else if (Starts(entry, kSubTopKey)) {
      topics_.push_back(
          {kSubTopicIndent + After(entry, kSubTopKey), PutStuff(CommentBehind(entries, i))});
      boxes_.emplace_back();
    } else if (Starts(entry, kEqnKey)) {
      boxes_.back().push_back({After(entry, kEqnKey), PutStuff(CommentBehind(entries, i))});
    }
  }
  topic_ = topics_.empty() ? -1 : 0;
}

int ListEditor::PutStuff(const std::string& text) {
  stuff_.push_back(text);
  return static_cast<int>(stuff_.size());
}

const std::string& ListEditor::GetStuff(int number) const {
  static const std::string kNone;
  if (number < 1 || number > static_cast<int>(stuff_.size())) return kNone;
  return stuff_[static_cast<std::size_t>(number - 1)];
}

void ListEditor::SelectTopic(int index) {
  if (index < -1 || index >= static_cast<int>(topics_.size())) return;
  if (index == -1 && !topics_.empty()) return;  // box 0 shows only when there is no heading
  topic_ = index;
  eqn_ = -1;  // every other box loses its selection
}

void ListEditor::SelectEqn(int index) {
  if (index < -1 || index >= static_cast<int>(Eqns().size())) return;
  eqn_ = index;
}

std::string ListEditor::CommentOfSelectedTopic() const {
  return topic_ < 0 ? std::string() : GetStuff(topics_[static_cast<std::size_t>(topic_)].comment);
}

std::string ListEditor::CommentOfSelectedEqn() const {
  return eqn_ < 0 ? std::string() : GetStuff(Eqns()[static_cast<std::size_t>(eqn_)].comment);
}

std::size_t ListEditor::EntryCount() const {
  std::size_t count = topics_.size() * 2;
  for (const auto& box : boxes_) count += box.size() * 2;
  return count;
}

bool ListEditor::TopicNew(const std::string& text, const std::string& comment) {
  if (text.empty() || EntryCount() + 2 > static_cast<std::size_t>(kListCapacity)) return false;
  const auto at = static_cast<std::size_t>(topic_ + 1);
  topics_.insert(topics_.begin() + static_cast<std::ptrdiff_t>(at), {text, PutStuff(comment)});
  boxes_.insert(boxes_.begin() + static_cast<std::ptrdiff_t>(at) + 1, std::vector<EditorItem>{});
  SelectTopic(static_cast<int>(at));
  return true;
}

bool ListEditor::TopicEdit(const std::string& text, const std::string& comment) {
  if (text.empty() || topic_ < 0) return false;
  EditorItem& item = topics_[static_cast<std::size_t>(topic_)];
  item.text = text;
  if (comment != GetStuff(item.comment)) item.comment = PutStuff(comment);
  return true;
}

bool ListEditor::EqnNew(const std::string& text, const std::string& comment) {
  if (text.empty() || EntryCount() + 2 > static_cast<std::size_t>(kListCapacity)) return false;
  std::vector<EditorItem>& box = boxes_[CurrentBox()];
  const auto at = static_cast<std::size_t>(eqn_ + 1);
  box.insert(box.begin() + static_cast<std::ptrdiff_t>(at), {text, PutStuff(comment)});
  eqn_ = static_cast<int>(at);
  return true;
}

bool ListEditor::EqnEdit(const std::string& text, const std::string& comment) {
  if (text.empty() || eqn_ < 0) return false;
  EditorItem& item = boxes_[CurrentBox()][static_cast<std::size_t>(eqn_)];
  item.text = text;
  if (comment != GetStuff(item.comment)) item.comment = PutStuff(comment);
  return true;
}

void ListEditor::SetEqnComment(const std::string& comment) {
  if (eqn_ < 0) return;
  EditorItem& item = boxes_[CurrentBox()][static_cast<std::size_t>(eqn_)];
  if (comment != GetStuff(item.comment)) item.comment = PutStuff(comment);
}

bool ListEditor::TopicCopy() {
  if (topic_ < 0) return false;
  topic_clip_ = TopicClip{topics_[static_cast<std::size_t>(topic_)], boxes_[CurrentBox()]};
  return true;
}

bool ListEditor::TopicCut() {
  if (!TopicCopy()) return false;
  const auto at = static_cast<std::size_t>(topic_);
  topics_.erase(topics_.begin() + static_cast<std::ptrdiff_t>(at));
  boxes_.erase(boxes_.begin() + static_cast<std::ptrdiff_t>(at) + 1);
  KeepFirstHeadingATopic();
  SelectTopic(topics_.empty() ? -1 : std::min(topic_, static_cast<int>(topics_.size()) - 1));
  return true;
}

bool ListEditor::TopicPaste(std::string& refusal) {
  if (!topic_clip_) return false;
  if (EntryCount() + 2 + topic_clip_->eqns.size() * 2 > static_cast<std::size_t>(kListCapacity)) {
    refusal = ListFullText();
    return false;
  }
  const auto at = static_cast<std::size_t>(topic_ + 1);
  topics_.insert(topics_.begin() + static_cast<std::ptrdiff_t>(at), topic_clip_->heading);
  boxes_.insert(boxes_.begin() + static_cast<std::ptrdiff_t>(at) + 1, topic_clip_->eqns);
  KeepFirstHeadingATopic();
  SelectTopic(static_cast<int>(at));
  return true;
}

bool ListEditor::EqnCopy() {
  if (eqn_ < 0) return false;
  eqn_clip_ = {Eqns()[static_cast<std::size_t>(eqn_)]};
  return true;
}

bool ListEditor::EqnCut() {
  if (!EqnCopy()) return false;
  std::vector<EditorItem>& box = boxes_[CurrentBox()];
  box.erase(box.begin() + eqn_);
  eqn_ = box.empty() ? -1 : std::min(eqn_, static_cast<int>(box.size()) - 1);
  return true;
}

bool ListEditor::EqnPaste(std::string& refusal) {
  if (eqn_clip_.empty()) return false;
  if (EntryCount() + 2 > static_cast<std::size_t>(kListCapacity)) {
    refusal = ListFullText();
    return false;
  }
  std::vector<EditorItem>& box = boxes_[CurrentBox()];
  const auto at = static_cast<std::size_t>(eqn_ + 1);
  box.insert(box.begin() + static_cast<std::ptrdiff_t>(at), eqn_clip_.front());
  eqn_ = static_cast<int>(at);
  return true;
}

void ListEditor::KeepFirstHeadingATopic() {
  // A subtopic at the top has no topic above it.
  if (!topics_.empty()) Unindent(topics_.front().text);
}

bool ListEditor::Demote() {
  if (topic_ <= 0) return false;  // the first heading needs no topic above it
  std::string& text = topics_[static_cast<std::size_t>(topic_)].text;
  if (IsSubTopic(text)) return false;
  text.insert(0, kSubTopicIndent);
  return true;
}

bool ListEditor::Promote() {
  if (topic_ < 0) return false;
  return Unindent(topics_[static_cast<std::size_t>(topic_)].text);
}

bool ListEditor::MoveTopic(int direction) {
  if (!SwapWithNeighbour(topics_, topic_, direction)) return false;
  // The equation boxes move with their headings.
  std::swap(boxes_[static_cast<std::size_t>(topic_) + 1],
            boxes_[static_cast<std::size_t>(topic_ + direction) + 1]);
  topic_ += direction;
  KeepFirstHeadingATopic();
  return true;
}

bool ListEditor::MoveEqn(int direction) {
  if (!SwapWithNeighbour(boxes_[CurrentBox()], eqn_, direction)) return false;
  eqn_ += direction;
  return true;
}

std::vector<std::string> ListEditor::CreateNewInputList() const {
  std::vector<std::string> out;
  out.reserve(EntryCount());
  const auto write_box = [&](const std::vector<EditorItem>& box) {
    for (const EditorItem& item : box) {
      out.push_back(std::string(kEqnKey) + item.text);
      out.push_back(std::string(kCommentKey) + GetStuff(item.comment));
    }
  };
  write_box(boxes_[0]);
  for (std::size_t k = 0; k < topics_.size(); ++k) {
    const std::string& line = topics_[k].text;
    out.push_back(IsSubTopic(line) ? std::string(kSubTopKey) + line.substr(kIndentLength)
                                   : std::string(kTopicKey) + line);
    out.push_back(std::string(kCommentKey) + GetStuff(topics_[k].comment));
    write_box(boxes_[k + 1]);
  }
  return out;
}

bool ListEditor::Changed() const { return !SameLists(CreateNewInputList(), backup_); }

void ListEditor::Keep() {
  std::vector<std::string> rebuilt = CreateNewInputList();
  if (SameLists(rebuilt, backup_)) {
    s_.TopicsStaleFlag = false;
    return;
  }
  s_.ListEntries = std::move(rebuilt);
  s_.TopicsStaleFlag = true;
  s_.ListEditedFlag = true;
}

void ListEditor::Discard() { s_.ListEntries = backup_; }

}  // namespace tavimor
