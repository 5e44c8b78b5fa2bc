#include "desk/FaultPanel.h"

#include "faults/NetworkFaults.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace tv {

namespace {

constexpr int panelWidth = 260;

const char* const panelStyle =
    "tv--FaultPanel { background: #1d2026; }"
    "QLabel { color: #c8ccd2; }"
    "QLabel#problem { color: #ff8a80; }"
    "QLineEdit, QComboBox, QListWidget, QAbstractItemView { background: #14161b; color: white; padding: 4px;"
    "border: 1px solid #14161b; }"
    "QPushButton { background: #3a3f47; color: white; border: 0; border-radius: 6px; padding: 6px; }"
    "QPushButton:focus { background: #3f5f8f; }"
    "QLineEdit:focus, QComboBox:focus, QListWidget:focus { border-color: #ffffff; }";

const char* const examples[] = {"delay:3000",
                                "throttle:50000",
                                "stall:300000",
                                "cut:300000",
                                "status:404",
                                "status:500",
                                "silent",
                                "redirect",
                                "type:text/plain",
                                "norange",
                                "delay:3000,throttle:50000"};

QPushButton* addButton(const char* text, QVBoxLayout& layout) {
    auto* button = new QPushButton(QString::fromLatin1(text));
    layout.addWidget(button);
    return button;
}

} // namespace

FaultPanel::FaultPanel(NetworkFaults& faults, const QList<FaultRule>& rules)
    : m_faults(faults), m_pattern(new QLineEdit(QStringLiteral("*"))), m_fault(new QComboBox), m_rules(rules),
      m_list(new QListWidget), m_problem(new QLabel) {
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QString::fromLatin1(panelStyle));
    setFixedWidth(panelWidth);
    setFocusProxy(m_pattern);
    m_fault->setEditable(true);
    for (const char* example : examples) {
        m_fault->addItem(QString::fromLatin1(example));
    }
    m_list->setWordWrap(true);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const FaultRule& rule : m_rules) {
        m_list->addItem(rule.text);
    }
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setWordWrap(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("Network faults (plain HTTP only)")));
    layout->addWidget(new QLabel(QStringLiteral("Address pattern, such as *.m4s")));
    layout->addWidget(m_pattern);
    layout->addWidget(new QLabel(QStringLiteral("Fault")));
    layout->addWidget(m_fault);
    connect(addButton("Add", *layout), &QPushButton::clicked, this, &FaultPanel::addRule);
    layout->addWidget(m_problem);
    layout->addWidget(m_list, 1);
    connect(addButton("Remove", *layout), &QPushButton::clicked, this, &FaultPanel::removeRule);
    connect(addButton("Remove all", *layout), &QPushButton::clicked, this, [this] {
        m_rules.clear();
        m_list->clear();
        applyRules();
    });
}

QSize FaultPanel::sizeHint() const {
    return {panelWidth, QWidget::sizeHint().height()};
}

void FaultPanel::addRule() {
    const auto rule = parseFaultRule(m_pattern->text() + QLatin1Char('=') + m_fault->currentText());
    if (!rule) {
        m_problem->setText(QStringLiteral("\"%1\" is not a fault; the list shows examples").arg(rule.reason()));
        return;
    }
    m_rules.append(*rule);
    m_list->addItem(rule->text);
    m_list->setCurrentRow(m_list->count() - 1);
    applyRules();
}

void FaultPanel::removeRule() {
    const int row = m_list->currentRow();
    if (row >= 0) {
        m_rules.removeAt(row);
        delete m_list->takeItem(row);
    }
    applyRules();
}

void FaultPanel::applyRules() {
    const auto applied = m_faults.set(m_rules);
    m_problem->setText(applied ? QString() : applied.reason());
}

} // namespace tv
