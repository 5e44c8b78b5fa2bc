/** What the scripted platform was asked to do, in order and as text: "7.Play(0) 7.SetSpeed(1.0)". */
#ifndef JOURNAL_H
#define JOURNAL_H

#include <string>

namespace fake {

/** Adds an entry. Any thread. */
void note(const std::string& entry);

/** @return the entries since the last call, separated by blanks */
std::string happened();

} // namespace fake

#endif
