/*
 * The settings operations of libquirelle for programs without a window, as plain C functions.
 *
 * Strings are zero-terminated UTF-8. A `char*` that a function returns is a block of its own: the caller gives it back
 * with `free` of the C library. No function keeps a pointer that it was given. `bool` is one byte, 0 or 1; `int` has 32
 * bits; the calling convention is the platform's own for C.
 *
 * Any thread may call at any time: calls wait for each other. None needs a display, a main loop or a running menu, and
 * none ends the process. A call that changes something has it stored when it returns. What fails is answered as it
 * stands at the function and written to the log; where nothing is returned, the log alone tells.
 *
 * Tuner numbers count from 0, and only their lower 16 bits count. A tuner that the TV does not have fails.
 */
#ifndef TESSARIN_H
#define TESSARIN_H

#include <stdbool.h>

#if defined(__GNUC__)
#define TESSARIN_API __attribute__((visibility("default")))
#else
#define TESSARIN_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* --- Texts ------------------------------------------------------------------------------------ */

/* The text of a string ID in the TV's language, with its placeholders <<A>>, <<B>>, <<C>>, <<D>> filled by a1 to a4, at
 * most 511 bytes of it, cut between two characters. A null argument leaves its placeholder empty. An ID without a text
 * stands for itself, a null one for an empty text. The caller frees the result. Sets LANGUAGE in the environment of the
 * process where the TV's language is another one; the process's own locale does not matter and stays. */
TESSARIN_API char* Tessarin_CombinateStrings(const char* stringId, const char* a1, const char* a2, const char* a3,
                                             const char* a4);

/* Today's date in the order of the TV's language, or that of its model year while the clock is not set. The caller
 * frees it. */
TESSARIN_API char* Tessarin_GetCurrentDateString(void);

/* A blank and the three letters of the country, " DEU"; only the blank when the TV does not tell, an empty text when
 * nobody can be asked. The caller frees it in each case. */
TESSARIN_API char* Tessarin_GetCurrentCountryCode(void);

/* --- Single-cable reception --------------------------------------------------------------------- */

/* Whether two tuners share the cable, so that each has a slot of its own. */
TESSARIN_API bool Tessarin_FlagVisibleSatCRTwoTuner(void);

/* Commands of Tessarin_SendSatCRCommand. */
enum { TESSARIN_SATCR_DETECT = 0, TESSARIN_SATCR_VERIFY = 1, TESSARIN_SATCR_STOP = 2 };

/* Starts or stops a run. False when the tuner's settings cannot be read or nobody takes commands; whether the command
 * was taken, the progress shows. */
TESSARIN_API bool Tessarin_SendSatCRCommand(int tunerId, int command);

/* How far the run is: {"SlotFrequency": MHz, "SlotNumber": 0 to 255, "Progress": 0 to 100 percent}. A frequency of -1,
 * with 0 and 0, when it cannot be read. The caller frees it. */
TESSARIN_API char* Tessarin_GetSatCRProgress(int tunerId);

/* Whether a run that ended with this frequency (MHz) has succeeded. Process type 1 (first tuner) and 2 (second): a
 * detection, which has found one above 0; any other number: a verification, whose frequency is the stored one. */
TESSARIN_API bool Tessarin_IsSatCRCommandSuccess(int tunerId, int slotFrequency, int processType);

/* The stored frequency of the tuner's slot in MHz, -1 when it cannot be read. */
TESSARIN_API int Tessarin_GetSlotFrequency(int tunerId);

/* Stores it; a run does not do so by itself. 1 when it is stored, -1 for a frequency below 1 or without the settings,
 * another value when the TV refuses it. */
TESSARIN_API int Tessarin_SetSatCRSlotFrequency(int tunerId, int slotFrequency);

/* --- Satellites and the dish -------------------------------------------------------------------- */

/* Stores where the dish points as the position of the satellite that is being set up. */
TESSARIN_API void Tessarin_UserStorePosition(void);

/* Stores where the dish points as its east or west limit, whichever is being set, and as that satellite's position. */
TESSARIN_API void Tessarin_InstallerStorePosition(void);

/* Turns the dish to its zero; it takes its time, and the call does not wait. */
TESSARIN_API void Tessarin_InstallerGoToZero(void);

/* Takes both limits of the dish back. */
TESSARIN_API void Tessarin_InstallerResetLimit(void);

/* Tunes to the transponder that the user has defined, whether it has channels or not; with true the dish turns to its
 * satellite first. 1 when it is being tuned, else 0. */
TESSARIN_API int Tessarin_TuneAloneSelectedTransponder(bool enablePositioner);

/* Puts every satellite setting back to how the set came. 1 when done, 0 when there are none to reset. */
TESSARIN_API int Tessarin_ResetSatelliteSettings(void);

/* --- Fine tuning of an analogue channel ----------------------------------------------------------
 * Offsets are steps, -32 to +32. An offset that is out of range goes on as its lower eight bits.
 * To keep an offset: Tessarin_SetTunerMft, Tessarin_SetFineTuneType, Tessarin_SetFinetuneFreq(offset),
 * Tessarin_PresetTunerMft(offset). To drop it: Tessarin_ResetTurnerMft, Tessarin_ResetFinetuneType,
 * Tessarin_SetFinetuneFreq(0). */

/* What the tuner applies; 0 when it cannot be read, -1 without a tuner. */
TESSARIN_API int Tessarin_GetTunerMft(void);

/* Lets the tuner try an offset, without keeping it. */
TESSARIN_API void Tessarin_PresetTunerMft(int value);

/* The tuner keeps what it tries. */
TESSARIN_API void Tessarin_SetTunerMft(void);

/* The tuner drops it. */
TESSARIN_API void Tessarin_ResetTurnerMft(void);

/* These three write the record of the channel that the fine-tune window of the same process has loaded, and say in the
 * log that the update failed where none is loaded. */
TESSARIN_API void Tessarin_SetFineTuneType(void);
TESSARIN_API void Tessarin_ResetFinetuneType(void);
TESSARIN_API void Tessarin_SetFinetuneFreq(int frequency);

/* --- The rating system that a broadcast brings along -------------------------------------------- */

/* {"RegionName": text, "Count": dimensions, "Names": [text], "RatingCounts": [number], "RatingNames": [[text]]}; the
 * three lists are missing where there is no dimension. Null without a rating system. The caller frees it. */
TESSARIN_API char* Tessarin_GetRatingInfo(void);

/* Whether a rating is locked. Dimensions and ratings count from 0. False, too, when it cannot be read. */
TESSARIN_API bool Tessarin_GetRRSLock(int dimension, int rating);

/* Above 0 when it is stored, -1 when it cannot be, as for a rating that the system does not have. */
TESSARIN_API int Tessarin_SetRRSLock(int dimension, int rating, bool lock);

/* --- The channel list as an archive -------------------------------------------------------------- */

/* Writes the list to a file, whole or not at all; what has become of it, the log tells. Null is an empty path, which
 * fails. */
TESSARIN_API void Tessarin_InitiateExportToTemp(const char* path);

/* Replaces the list by an archive's, whole or not at all. 0 when done; 2: the list of another country; 1 and 4: no
 * archive of a list, or one that the TV does not know; 3: any other failure. Null is an empty path. */
TESSARIN_API int Tessarin_LoadCopiedChannelList(char* zipFilePath);

#ifdef __cplusplus
}
#endif

#endif
