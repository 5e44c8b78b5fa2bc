#include "desk/FaultPanel.h"

#include "faults/FaultRule.h"
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

QPushButton* makeButton(const char* text, QVBoxLayout& layout) {
    auto* button = new QPushButton(QString::fromLatin1(text));
    layout.addWidget(button);
    return button;
}

} // namespace

FaultPanel::FaultPanel(NetworkFaults& faults, const QStringList& rules)
    : m_faults(faults), m_pattern(new QLineEdit(QStringLiteral("*"))), m_fault(new QComboBox), m_rules(new QListWidget),
      m_problem(new QLabel) {
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QString::fromLatin1(panelStyle));
    setFixedWidth(panelWidth);
    setFocusProxy(m_pattern);
    m_fault->setEditable(true);
    for (const char* example : examples) {
        m_fault->addItem(QString::fromLatin1(example));
    }
    m_rules->setWordWrap(true);
    m_rules->setTextElideMode(Qt::ElideMiddle);
    m_rules->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_rules->addItems(rules);
    m_problem->setObjectName(QStringLiteral("problem"));
    m_problem->setWordWrap(true);

    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel(QStringLiteral("Faults of all servers by http, not by https"));
    title->setWordWrap(true);
    layout->addWidget(title);
    layout->addWidget(new QLabel(QStringLiteral("Address, for example *.m4s")));
    layout->addWidget(m_pattern);
    layout->addWidget(new QLabel(QStringLiteral("Fault")));
    layout->addWidget(m_fault);
    connect(makeButton("Add", *layout), &QPushButton::clicked, this, &FaultPanel::addRule);
    layout->addWidget(m_problem);
    layout->addWidget(m_rules, 1);
    connect(makeButton("Remove", *layout), &QPushButton::clicked, this, [this] {
        delete m_rules->currentItem();
        applyRules();
    });
    connect(makeButton("Remove all", *layout), &QPushButton::clicked, this, [this] {
        m_rules->clear();
        applyRules();
    });
}

QSize FaultPanel::sizeHint() const {
    return {panelWidth, QWidget::sizeHint().height()};
}

void FaultPanel::addRule() {
    const QString text = m_pattern->text() + QLatin1Char('=') + m_fault->currentText();
    QString wrong;
    if (!parseFaultRule(text, wrong)) {
        m_problem->setText(QStringLiteral("\"%1\" is no fault; the list has examples").arg(wrong));
        return;
    }
    m_problem->clear();
    m_rules->addItem(text);
    m_rules->setCurrentRow(m_rules->count() - 1);
    applyRules();
}

void FaultPanel::applyRules() {
    std::vector<ServerFaultRule> rules;
    for (int row = 0; row < m_rules->count(); ++row) {
        QString wrong;
        rules.push_back(*parseFaultRule(m_rules->item(row)->text(), wrong));
    }
    m_problem->setText(m_faults.set(rules) ? QString() : QStringLiteral("No port is free: only local files go wrong"));
}

} // namespace tv
