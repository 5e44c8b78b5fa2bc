/** The panel of network faults. */
#ifndef FAULTPANEL_H
#define FAULTPANEL_H

#include "faults/FaultRule.h"

#include <QList>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;

namespace tv {

class NetworkFaults;

/** Lists the rules of NetworkFaults, to add and remove while a page runs. */
class FaultPanel : public QWidget {
    Q_OBJECT
public:
    /**
     * @param faults outlives the panel
     * @param rules  that are in force already
     */
    FaultPanel(NetworkFaults& faults, const QList<FaultRule>& rules);

    QSize sizeHint() const override;

private:
    void addRule();
    void removeRule();
    void applyRules();

    NetworkFaults& m_faults;
    QLineEdit* m_pattern;
    QComboBox* m_fault;
    QList<FaultRule> m_rules;
    QListWidget* m_list; ///< the texts of m_rules
    QLabel* m_problem;
};

} // namespace tv

#endif
