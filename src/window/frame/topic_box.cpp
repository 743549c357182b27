#include "window/frame/topic_box.h"

#include <QComboBox>
#include <QListView>
#include <QStackedWidget>
#include <QStringListModel>
#include <QWheelEvent>

#include "shell/command_row.h"
#include "shell/session.h"
#include "window/frame/search_box.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr int kColumns = 30;       // characters that the box has room for
constexpr int kLeastColumns = 12;  // and in a narrow window
constexpr int kColumnsOfList = 44;
constexpr int kRowsOfList = 24;
constexpr std::size_t kMostOfTitle = 200;  // bytes

// A box that gives way before the buttons beside it do.
class YieldingBox : public QStackedWidget {
 public:
  using QStackedWidget::QStackedWidget;
  QSize sizeHint() const override { return {Width(kColumns), QStackedWidget::sizeHint().height()}; }
  QSize minimumSizeHint() const override { return {Width(kLeastColumns), QStackedWidget::sizeHint().height()}; }

 private:
  int Width(int columns) const { return fontMetrics().averageCharWidth() * columns; }
};

// The wheel belongs to the page below: it turns no topics over by the way.
class TopicList : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

QString TitleLine(std::string_view title) {
  QString line = ToQt(title.substr(0, kMostOfTitle));
  for (QChar& c : line) {
    if (!c.isPrint()) c = QChar::Space;
  }
  return line.simplified();
}

}  // namespace

TopicBox::TopicBox(Session& session, QWidget* frame) : QWidgetAction(frame), session_(session) {
  box_ = new YieldingBox(frame);
  box_->setObjectName("TopicBox");
  box_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  BuildTopics();
  BuildSearch();
  setDefaultWidget(box_);
}

void TopicBox::BuildTopics() {
  topics_ = new TopicList(box_);
  topics_->setObjectName("HandbookTopics");
  topics_->setAccessibleName(tr("Handbook topic"));
  topics_->setToolTip(tr("Choose a topic of the handbook"));
  topics_->setPlaceholderText(QStringLiteral("Select Handbook Topic..."));
  topics_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  topics_->setMinimumContentsLength(1);
  topics_->setMaxVisibleItems(kRowsOfList);
  topics_->setFocusPolicy(Qt::StrongFocus);
  auto* list = new QListView(topics_);
  list->setUniformItemSizes(true);
  list->setTextElideMode(Qt::ElideRight);
  topics_->setView(list);
  box_->addWidget(topics_);
  connect(topics_, &QComboBox::activated, this, [this](int index) {
    session_.handbook.chosen_row = index + 1;
    trigger();
  });
}

void TopicBox::BuildSearch() {
  search_ = new SearchBox(box_);
  search_->setObjectName("GlossarySearch");
  search_->setAccessibleName(tr("Search the glossary"));
  search_->setToolTip(tr("Text to search the glossary for: Enter begins the search"));
  box_->addWidget(search_);
  connect(search_, &SearchBox::Typed, this,
          [this](const QString& typed) { session_.glossary.SearchText = FromQt(QString(typed).replace('\n', ' ')); });
  connect(search_, &SearchBox::SearchAsked, this, &QAction::trigger);
  connect(search_, &SearchBox::ResetAsked, this, [this] {
    auto* reset = box_->window()->findChild<QAction*>(QString::number(kResetSearchCommand));
    if (reset && reset->isEnabled()) reset->trigger();
  });
}

void TopicBox::FillTopics() {
  const auto& topics = session_.handbook.topics;
  if (topics_->count() == static_cast<int>(topics.size())) return;
  QStringList titles;
  for (const HandbookTopic& topic : topics) titles += TitleLine(topic.title);
  topics_->setModel(new QStringListModel(titles, topics_));
  topics_->view()->setMinimumWidth(box_->fontMetrics().averageCharWidth() * kColumnsOfList);
}

void TopicBox::ShowSession() {
  if (session_.ActiveView == View::ViewHandbook) {
    FillTopics();
    topics_->setCurrentIndex(session_.handbook.chosen_row - 1);
    box_->setCurrentWidget(topics_);
  } else if (session_.ActiveView == View::ViewGlossary) {
    if (FromQt(search_->Text()) != session_.glossary.SearchText) search_->ShowText(ToQt(session_.glossary.SearchText));
    box_->setCurrentWidget(search_);
  }
}

void TopicBox::FocusSearch() {
  search_->setFocus(Qt::ShortcutFocusReason);
  search_->selectAll();
}

}  // namespace tessara
