#include "desk/RemotePanel.h"

#include "remote/RemoteKeys.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace tv {

namespace {

constexpr int panelWidth = 210;
constexpr int columns = 12; ///< of the grid: both three and four buttons fill a row
constexpr int buttonHeight = 36;
constexpr int leastButtonHeight = 18; ///< on a small screen

constexpr int gapRows[] = {5, 9, 11};
constexpr int gapHeight = 6;
constexpr int focusRow = 14; ///< below the buttons

const char* const panelStyle = "tv--RemotePanel { background: #1d2026; }"
                               "QLabel, QCheckBox { color: #c8ccd2; }"
                               "QCheckBox { border: 1px solid #1d2026; padding: 2px; }"
                               "QCheckBox:focus { border-color: #ffffff; }"
                               "QPushButton { background: #3a3f47; color: white; border: 0; border-radius: 6px; }"
                               "QPushButton:pressed { background: #8a93a3; }";

} // namespace

RemotePanel::RemotePanel(bool spatialNavigation) {
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QString::fromLatin1(panelStyle));
    setFixedWidth(panelWidth);
    auto* grid = new QGridLayout(this);
    grid->setSpacing(6);
    auto* title = new QLabel(QStringLiteral("Remote control"));
    title->setAlignment(Qt::AlignCenter);
    grid->addWidget(title, 0, 0, 1, columns);
    for (const RemoteKey& key : remoteKeys()) {
        if (key.button.row > 0) {
            addButton(*grid, key);
        }
    }
    for (const int row : gapRows) {
        grid->setRowMinimumHeight(row, gapHeight);
    }
    auto* focus = new QCheckBox(QStringLiteral("Arrows move the focus"));
    focus->setFocusPolicy(Qt::TabFocus);
    focus->setChecked(spatialNavigation);
    connect(focus, &QCheckBox::toggled, this, &RemotePanel::spatialNavigationSwitched);
    grid->addWidget(focus, focusRow, 0, 1, columns);
    grid->setRowStretch(focusRow + 1, 1);
    connect(&m_heldKey, &KeyRepeat::remoteKey, this, &RemotePanel::remoteKey);
}

QSize RemotePanel::sizeHint() const {
    return {panelWidth, QWidget::sizeHint().height()};
}

void RemotePanel::addButton(QGridLayout& grid, const RemoteKey& key) {
    const QString name = QString::fromLatin1(key.name);
    auto* button = new QPushButton(QString::fromUtf8(key.button.label));
    button->setObjectName(name);
    button->setToolTip(name);
    button->setFocusPolicy(Qt::NoFocus); // The keyboard stays with the page.
    button->setMinimumSize(0, leastButtonHeight);
    button->setMaximumHeight(buttonHeight);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    if (key.button.colour) {
        button->setStyleSheet(
            QStringLiteral("QPushButton:!pressed { background: %1; }").arg(QLatin1String(key.button.colour)));
    }
    connect(button, &QPushButton::pressed, this, [this, &key] { m_heldKey.press(key); });
    connect(button, &QPushButton::released, this, [this] { m_heldKey.release(); });
    const int span = columns / key.button.columnCount;
    grid.addWidget(button, key.button.row, key.button.column * span, 1, span);
    grid.setRowStretch(key.button.row, 100); // Before the space below, up to the full height.
}

} // namespace tv
