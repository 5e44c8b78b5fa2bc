#include "desk/RemotePanel.h"

#include "remote/RemoteKeys.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace tv {

namespace {

constexpr int panelWidth = 210;
constexpr int columns = 12; ///< of the grid: three or four buttons fill a row
constexpr int buttonHeight = 36;
constexpr int leastButtonHeight = 18; ///< on a small screen

const struct {
    int row;
    int column; ///< of three in the row, or of four
    int ofColumns;
    const char* key;
    const char* label; ///< UTF-8
    const char* colour;
} buttons[] = {
    {1, 0, 3, "1", "1", nullptr},
    {1, 1, 3, "2", "2", nullptr},
    {1, 2, 3, "3", "3", nullptr},
    {2, 0, 3, "4", "4", nullptr},
    {2, 1, 3, "5", "5", nullptr},
    {2, 2, 3, "6", "6", nullptr},
    {3, 0, 3, "7", "7", nullptr},
    {3, 1, 3, "8", "8", nullptr},
    {3, 2, 3, "9", "9", nullptr},
    {4, 0, 3, "TELETEXT", "TEXT", nullptr},
    {4, 1, 3, "0", "0", nullptr},
    {4, 2, 3, "SUBTITLE", "SUBT", nullptr},
    {6, 1, 3, "UP", "\u25b2", nullptr},
    {7, 0, 3, "LEFT", "\u25c0", nullptr},
    {7, 1, 3, "ENTER", "OK", "#5b6472"},
    {7, 2, 3, "RIGHT", "\u25b6", nullptr},
    {8, 0, 3, "BACK", "BACK", nullptr},
    {8, 1, 3, "DOWN", "\u25bc", nullptr},
    {8, 2, 3, "INFO", "INFO", nullptr},
    {10, 0, 4, "RED", "", "#c62828"},
    {10, 1, 4, "GREEN", "", "#2e7d32"},
    {10, 2, 4, "YELLOW", "", "#e0b400"},
    {10, 3, 4, "BLUE", "", "#1f57c3"},
    {12, 0, 3, "REWIND", "\u25c0\u25c0", nullptr},
    {12, 1, 3, "PLAY", "\u25b6", nullptr},
    {12, 2, 3, "FAST_FWD", "\u25b6\u25b6", nullptr},
    {13, 0, 3, "STOP", "\u25a0", nullptr},
    {13, 1, 3, "PAUSE", "\u275a\u275a", nullptr},
    {13, 2, 3, "PLAY_PAUSE", "\u25b6\u275a", nullptr},
};

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
    for (const auto& button : buttons) {
        const int span = columns / button.ofColumns;
        addButton(*grid, button.row, button.column * span, span, button.key, QString::fromUtf8(button.label),
                  button.colour);
    }
    for (const int gap : {5, 9, 11}) {
        grid->setRowMinimumHeight(gap, 6);
    }
    auto* focus = new QCheckBox(QStringLiteral("Arrows move the focus"));
    focus->setFocusPolicy(Qt::TabFocus);
    focus->setChecked(spatialNavigation);
    connect(focus, &QCheckBox::toggled, this, &RemotePanel::spatialNavigationSwitched);
    grid->addWidget(focus, 14, 0, 1, columns);
    grid->setRowStretch(15, 1);
    connect(&m_hold, &KeyRepeat::remoteKey, this, &RemotePanel::remoteKey);
}

QSize RemotePanel::sizeHint() const {
    return {panelWidth, QWidget::sizeHint().height()};
}

void RemotePanel::addButton(QGridLayout& grid, int row, int column, int span, const char* name, const QString& label,
                            const char* colour) {
    const RemoteKey* key = remoteKeyNamed(QString::fromLatin1(name));
    auto* button = new QPushButton(label);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(QString::fromLatin1(name));
    button->setFocusPolicy(Qt::NoFocus); // The keyboard stays with the page.
    button->setMinimumSize(0, leastButtonHeight);
    button->setMaximumHeight(buttonHeight);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    if (colour) {
        button->setStyleSheet(QStringLiteral("QPushButton:!pressed { background: %1; }").arg(QLatin1String(colour)));
    }
    connect(button, &QPushButton::pressed, this, [this, key] { m_hold.press(*key); });
    connect(button, &QPushButton::released, this, [this] { m_hold.release(); });
    grid.addWidget(button, row, column, 1, span);
    grid.setRowStretch(row, 100); // Before the space below, up to the full height.
}

} // namespace tv
