/**
 * The faults of servers, to switch on and off while a page runs.
 */
#ifndef FAULTPANEL_H
#define FAULTPANEL_H

#include <QStringList>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace tv {

class NetworkFaults;

class FaultPanel : public QWidget {
    Q_OBJECT
public:
    /**
     * @param faults outlives the panel
     * @param rules  those that are there at the start: `PATTERN=FAULTS` each
     */
    FaultPanel(NetworkFaults& faults, const QStringList& rules);

    QSize sizeHint() const override;

private:
    void addRule();
    void applyRules();

    NetworkFaults& m_faults;
    QLineEdit* m_pattern;
    QComboBox* m_fault;
    QListWidget* m_rules;
    QLabel* m_problem;
};

} // namespace tv

#endif
