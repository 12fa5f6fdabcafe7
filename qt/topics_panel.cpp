// The topics of the open algebra file: topics in columns of twelve, the hovered topic's
// subtopics beside them; a click loads the problems of a heading into the equation box.
#include "qt/topics_panel.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

namespace tavimor {

namespace {

// Rows of a column of headings, and the least width of a column.
constexpr int kRowHeight = 32;
constexpr int kLeastColumnWidth = 200;

// Makes the columns of a list as wide as its widest heading, and the list at least one column
// wide, so that no heading is cut.
void FitColumns(QListWidget* list) {
  int widest = kLeastColumnWidth;
  const QFontMetrics metrics(list->font());
  for (int i = 0; i < list->count(); ++i) {
    widest = std::max(widest, metrics.horizontalAdvance(list->item(i)->text()) + 24);
  }
  list->setGridSize(QSize(widest, kRowHeight));
  list->setMinimumWidth(widest + 2 * list->frameWidth() + 4);
}

QListWidget* HeadingList(QWidget* parent, int rows) {
  auto* list = new QListWidget(parent);
  list->setViewMode(QListView::ListMode);
  list->setFlow(QListView::TopToBottom);
  list->setWrapping(true);  // a new column after the rows of one
  list->setResizeMode(QListView::Adjust);
  list->setMouseTracking(true);
  list->setUniformItemSizes(true);
  FitColumns(list);
  // Exactly `rows` headings a column: the thirteenth topic and the ninth subtopic begin the next.
  list->setFixedHeight(rows * kRowHeight + 2 * list->frameWidth() + 16);
  list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setStyleSheet(QStringLiteral(
      "QListWidget::item:hover { background: #C0C0FF; } QListWidget::item:selected { background: "
      "#C0C0FF; color: black; }"));
  return list;
}

}  // namespace

TopicsPanel::TopicsPanel(Session& s, QWidget* parent) : QWidget(parent), s_(s) {
  auto* layout = new QVBoxLayout(this);
  auto* heading = new QLabel(QStringLiteral("Choose a topic, then a subtopic:"), this);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  layout->addWidget(heading);
  auto* lists = new QHBoxLayout;
  topic_list_ = HeadingList(this, 12);
  subtopic_list_ = HeadingList(this, 8);
  // Both lists stand at the top; each takes the room its columns need, the rest is shared.
  lists->addWidget(topic_list_, 1, Qt::AlignTop);
  lists->addWidget(subtopic_list_, 1, Qt::AlignTop);
  layout->addLayout(lists);
  layout->addStretch(1);
  connect(topic_list_, &QListWidget::itemEntered, this,
          [this](QListWidgetItem* item) { HoverTopic(topic_list_->row(item)); });
  connect(topic_list_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const int row = topic_list_->row(item);
    HoverTopic(row);
    // A topic with subtopics does nothing on click: its subtopics take the click.
    if (subtopics_.empty()) {
      s_.CurrentSubTopic = 0;
      emit EquationsChosen(topics_[static_cast<std::size_t>(row)].position + 1);
    }
  });
  connect(subtopic_list_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const int row = subtopic_list_->row(item);
    s_.CurrentSubTopic = static_cast<std::int16_t>(row + 1);
    emit EquationsChosen(subtopics_[static_cast<std::size_t>(row)].position + 1);
  });
}

void TopicsPanel::Reload() {
  topics_ = LoadTopics(s_);
  subtopics_.clear();
  topic_list_->clear();
  subtopic_list_->clear();
  for (const Heading& topic : topics_) topic_list_->addItem(QString::fromStdString(topic.caption));
  FitColumns(topic_list_);
  s_.CurrentTopic = 0;
  s_.CurrentSubTopic = 0;
}

void TopicsPanel::HoverTopic(int row) {
  if (row < 0 || row + 1 == s_.CurrentTopic) return;
  s_.CurrentTopic = static_cast<std::int16_t>(row + 1);
  topic_list_->setCurrentRow(row);
  subtopics_ = LoadSubTopics(s_, topics_, row + 1);
  subtopic_list_->clear();
  for (const Heading& sub : subtopics_)
    subtopic_list_->addItem(QString::fromStdString(sub.caption));
  FitColumns(subtopic_list_);
}

}  // namespace tavimor
