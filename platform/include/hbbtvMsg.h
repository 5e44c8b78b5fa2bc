/** The television's message channel between the browser process and its other processes. */
#ifndef HBBTVMSG_H
#define HBBTVMSG_H

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Opens the process's message channel. Opening an open channel has no effect. Messages for a plug-in instance arrive
 * later through the plug-in's exported `videoControlHandleNotify`, on the browser's plug-in thread.
 * @param options reserved, null
 * @return 0 on success; the plug-in ignores it
 * Called once for each plug-in instance, on the plug-in thread.
 */
int openCommunicationChannel(void* options);

#ifdef __cplusplus
}
#endif

#endif
