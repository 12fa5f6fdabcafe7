// The topics of the open algebra file: topics in columns of twelve, the hovered topic's
// subtopics beside them; a click loads the problems of a heading into the equation box.
#pragma once

#include <QListWidget>
#include <QWidget>
#include <functional>
#include <vector>

#include "core/session.h"
#include "shell/algebra_file.h"

namespace tavimor {

class TopicsPanel : public QWidget {
  Q_OBJECT

 public:
  TopicsPanel(Session& s, QWidget* parent);
  // Reads the headings of the list anew.
  void Reload();
  int TopicCount() const { return static_cast<int>(topics_.size()); }
  QListWidget* Topics() const { return topic_list_; }
  QListWidget* SubTopics() const { return subtopic_list_; }

 signals:
  // The problems from this entry on are chosen.
  void EquationsChosen(int start_entry);

 private:
  void HoverTopic(int row);
  Session& s_;
  QListWidget* topic_list_;
  QListWidget* subtopic_list_;
  std::vector<Heading> topics_;
  std::vector<Heading> subtopics_;
};

}  // namespace tavimor
