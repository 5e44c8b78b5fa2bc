#include "desk/DeskMenu.h"

namespace tv {

namespace {

const char* const menuStyle = "QMenu { background: #1d2026; color: #e4e7ec; border: 1px solid #3a3f47; padding: 4px; }"
                              "QMenu::item { padding: 5px 26px 5px 14px; }"
                              "QMenu::item:selected { background: #3f5f8f; }"
                              "QMenu::separator { height: 1px; background: #3a3f47; margin: 4px; }";
constexpr QPoint position(20, 20); ///< in the window

} // namespace

DeskMenu::DeskMenu(const QList<QAction*>& actions, QAction* faults, QWidget* window) : QMenu(window) {
    setStyleSheet(QString::fromLatin1(menuStyle));
    addActions(actions);
    addSeparator();
    addAction(faults);
    QMenu* reports = addMenu(QStringLiteral("Inject player report"));
    reports->setStyleSheet(styleSheet());
    for (const InjectedReport& report : injectableReports()) {
        connect(reports->addAction(report.text), &QAction::triggered, this,
                [this, report] { emit reportChosen(report); });
    }
}

void DeskMenu::open() {
    popup(parentWidget()->mapToGlobal(position));
    setActiveAction(actions().constFirst());
}

} // namespace tv
