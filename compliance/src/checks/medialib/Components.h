/** Lists and selection of components, as the plug-in framework uses them. */
#ifndef COMPLIANCE_COMPONENTS_H
#define COMPLIANCE_COMPONENTS_H

#include "kit/TestedPlayer.h"

#include <vector>

namespace compliance {

/** @return the components of a type, as many as the framework asks for */
std::vector<Hbbtv_AL_ComponentInfo> listComponents(const Trial& trial, const TestedPlayer& player, int type);

/** @return how many components of a type are active */
int countActive(const Trial& trial, const TestedPlayer& player, int type);

/** Calls the Select or Unselect function of the type with a record of that pid. @return its result */
int selectComponent(const Trial& trial, TestedPlayer& player, int type, int pid, bool select);

/** Adds a track of AddSubtitle. @return its result */
int addTrack(TestedPlayer& player, const std::string& url, const std::string& language, const std::string& label);

} // namespace compliance

#endif
