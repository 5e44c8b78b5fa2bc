#include "timeline/panel/TimelinePanel.h"

#include "timeline/TimelineJson.h"

#include <QFocusEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHeaderView>
#include <QJsonDocument>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>

namespace tv {

namespace {

using Kind = TimelineKind;

constexpr QSize panelSize(700, 720);
constexpr int smallestWidth = 360;
constexpr int rowHeight = 20;
constexpr int filterColumns = 4;

const char* const panelStyle =
    "tv--TimelinePanel { background: #1d2026; }"
    "QTableView, QPlainTextEdit, QLineEdit { background: #14161b; color: #c8ccd2; border: 1px solid #14161b; }"
    "QTableView::item:selected { background: #34507a; }"
    "QHeaderView::section { background: #1d2026; color: #8a93a3; border: 0; padding: 2px 4px; }"
    "QLineEdit { padding: 4px 6px; border-radius: 4px; }"
    "QToolButton { background: #2a2e35; color: #8a93a3; border: 1px solid #2a2e35; border-radius: 4px;"
    "padding: 3px; }"
    "QScrollBar { background: #14161b; border: 0; width: 10px; height: 10px; }"
    "QScrollBar::handle { background: #3a3f47; border-radius: 5px; min-height: 30px; min-width: 30px; }"
    "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
    "QScrollBar::add-page, QScrollBar::sub-page { background: #14161b; }"
    "QToolButton:checked { background: #3f5f8f; border-color: #3f5f8f; color: white; }"
    "QTableView:focus, QPlainTextEdit:focus, QLineEdit:focus, QToolButton:focus { border: 1px solid #ffffff; }";

const struct {
    const char* label;
    std::initializer_list<Kind> kinds;
} groups[] = {
    {"Calls", {Kind::CALL, Kind::CREATED, Kind::GONE, Kind::PARAM}},
    {"Properties", {Kind::READ, Kind::WRITE}},
    {"Events", {Kind::STATE, Kind::EVENT}},
    {"Player", {Kind::COMMAND, Kind::REPORT, Kind::NOTE}},
    {"Network", {Kind::REQUEST, Kind::BUFFER}},
    {"Console", {Kind::CONSOLE, Kind::SCRIPT_ERROR, Kind::PAGE}},
    {"Keys", {Kind::KEY}},
};

} // namespace

TimelinePanel::TimelinePanel(int64_t startUs)
    : m_bands(new StateBands(startUs)), m_objects(new ObjectTable), m_search(new QLineEdit), m_list(makeList()),
      m_fields(new QPlainTextEdit) {
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QString::fromLatin1(panelStyle));
    setFont(QFont(font().family(), 9));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    setMinimumWidth(smallestWidth);
    m_objects->setMinimumHeight(2 * 24);
    m_objects->setMaximumHeight(4 * 24);
    m_fields->setReadOnly(true);
    m_fields->setMinimumHeight(44);
    m_fields->setMaximumHeight(130);
    m_fields->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_fields->setPlaceholderText(QStringLiteral("Click an entry to see all its fields."));
    m_fields->setTabChangesFocus(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 8);
    layout->setSpacing(6);
    layout->addWidget(m_bands);
    layout->addWidget(m_objects);
    layout->addLayout(makeFilters());
    layout->addWidget(m_list, 1);
    layout->addWidget(m_fields);
    connect(m_objects, &ObjectTable::chosen, &m_filter, &TimelineFilter::showObject);
}

QSize TimelinePanel::sizeHint() const {
    return panelSize;
}

/** Two rows of buttons, so that they fit on small screens. */
QGridLayout* TimelinePanel::makeFilters() {
    auto* grid = new QGridLayout;
    grid->setSpacing(4);
    int cell = 0;
    for (const auto& group : groups) {
        TimelineFilter::Kinds kinds;
        for (const Kind kind : group.kinds) {
            kinds.set(static_cast<size_t>(kind));
        }
        auto* button = new QToolButton;
        button->setText(QString::fromLatin1(group.label));
        button->setCheckable(true);
        button->setChecked(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        connect(button, &QToolButton::toggled, &m_filter, [this, kinds](bool on) { m_filter.showKinds(kinds, on); });
        grid->addWidget(button, cell / filterColumns, cell % filterColumns);
        grid->setColumnStretch(cell % filterColumns, 1);
        ++cell;
    }
    m_search->setPlaceholderText(QStringLiteral("Filter text"));
    m_search->setClearButtonEnabled(true);
    m_search->setFocusPolicy(Qt::StrongFocus);
    connect(m_search, &QLineEdit::textChanged, &m_filter, &TimelineFilter::showText);
    grid->addWidget(m_search, cell / filterColumns, cell % filterColumns);
    return grid;
}

QTableView* TimelinePanel::makeList() {
    m_filter.setSourceModel(&m_model);
    auto* list = new QTableView;
    list->setObjectName(QStringLiteral("entries"));
    list->setModel(&m_filter);
    list->setSelectionBehavior(QTableView::SelectRows);
    list->setSelectionMode(QTableView::SingleSelection);
    list->setShowGrid(false);
    list->setWordWrap(false);
    list->setTabKeyNavigation(false);
    list->setMinimumHeight(3 * rowHeight);
    list->installEventFilter(this);
    list->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    list->setVerticalScrollMode(QTableView::ScrollPerPixel);
    list->verticalHeader()->hide();
    list->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    list->verticalHeader()->setDefaultSectionSize(rowHeight);
    QHeaderView* header = list->horizontalHeader();
    header->setSectionResizeMode(TimelineModel::TEXT, QHeaderView::Stretch);
    header->resizeSection(TimelineModel::TIME, 84);
    header->resizeSection(TimelineModel::OBJECT, 50);
    header->resizeSection(TimelineModel::KIND, 92);
    header->resizeSection(TimelineModel::DURATION, 70);
    follow(*list);
    connect(list->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this](const QModelIndex& index) {
        if (index.isValid()) {
            m_follows = index.row() == m_filter.rowCount() - 1;
            showEntry(m_model.entry(m_filter.mapToSource(index).row()));
        }
    });
    return list;
}

/** When the list gets the focus by keyboard, the newest entry becomes the current one: the arrow keys start there. */
bool TimelinePanel::eventFilter(QObject* list, QEvent* event) {
    if (list == m_list && event->type() == QEvent::FocusIn && !m_list->currentIndex().isValid()) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) {
            m_list->setCurrentIndex(m_filter.index(m_filter.rowCount() - 1, TimelineModel::TEXT));
        }
    }
    return false;
}

/** Keeps the list scrolled to its end until a person scrolls up or chooses another entry than the last one. */
void TimelinePanel::follow(QTableView& list) {
    QScrollBar* bar = list.verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, [this, bar](int value) { m_follows = value == bar->maximum(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this, bar](int, int maximum) {
        if (m_follows) {
            bar->setValue(maximum);
        }
    });
}

void TimelinePanel::append(const TimelineEntries& entries) {
    m_model.append(entries);
    m_bands->append(entries);
    m_objects->append(entries);
    for (const TimelineEntry& entry : entries) {
        const bool isProblem =
            entry.kind() == Kind::ERROR || entry.kind() == Kind::STALL || entry.kind() == Kind::SCRIPT_ERROR;
        if (isProblem && !m_list->currentIndex().isValid()) {
            showEntry(entry);
        }
    }
}

void TimelinePanel::showEntry(const TimelineEntry& entry) {
    m_fields->setPlainText(QString::fromUtf8(QJsonDocument(timelineJson(entry)).toJson()));
}

} // namespace tv
