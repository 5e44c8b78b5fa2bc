/**
 * The faults of the server for local files, to switch on and off while a page runs.
 */
#ifndef FAULTPANEL_H
#define FAULTPANEL_H

#include <QStringList>
#include <QWidget>

class LoopbackServer;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;

class FaultPanel : public QWidget {
    Q_OBJECT
public:
    /**
     * @param server outlives the panel
     * @param rules  that the server has at the start: `PATTERN=FAULTS` each
     */
    FaultPanel(LoopbackServer& server, const QStringList& rules);

    QSize sizeHint() const override;

private:
    void addRule();
    void applyRules();

    LoopbackServer& m_server;
    QLineEdit* m_pattern;
    QComboBox* m_fault;
    QListWidget* m_rules;
    QLabel* m_problem;
};

#endif
