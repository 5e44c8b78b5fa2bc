/**
 * Ends the event loop on SIGINT and SIGTERM, so that the program leaves in order: page, players, trace.
 */
#ifndef TERMINATIONSIGNALS_H
#define TERMINATIONSIGNALS_H

#include <QObject>

class TerminationSignals : public QObject {
    Q_OBJECT
public:
    /** Blocks the signals' usual effect. To be made before other threads, which inherit it. */
    TerminationSignals();
    ~TerminationSignals() override;

    /** Exits the application with 128 + the signal's number when one comes. Call when there is an application. */
    void watch();

private:
    int m_descriptor;
};

#endif
