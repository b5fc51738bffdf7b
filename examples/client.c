/*
 * The settings of a TV from C, without a window:
 *
 *   cc -std=c99 -pedantic client.c $(pkg-config --cflags --libs tessarin) -o client
 *   QUIRELLE_TV=tv.db ./client /tmp/list.zip
 *
 * Says what TV this is, finds a slot on the single cable, drives the dish, tries a fine tune, lists and locks ratings,
 * and writes and loads the channel list.
 */
#define _POSIX_C_SOURCE 200809L
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <tessarin.h>
#include <time.h>

enum { TUNER = 0, STEPS = 5 };

/* Every text is the caller's, and one that could not be had is null. */
static void print_and_free(const char* label, char* text) {
  printf("%s: %s\n", label, text ? text : "none");
  free(text);
}

/* A number of a flat JSON object. */
static int number_of(const char* json, const char* name) {
  const char* found = strstr(json, name);
  const char* colon = found ? strchr(found, ':') : NULL;
  return colon ? atoi(colon + 1) : -1;
}

static void find_slot(void) {
  const struct timespec pause = {0, 50 * 1000 * 1000};
  int progress = 0, frequency = -1, still = 0;
  if (!Tessarin_SendSatCRCommand(TUNER, TESSARIN_SATCR_DETECT)) {
    printf("slot: cannot be read\n");
    return;
  }
  /* A run that does not come on for 10 seconds has been ended by somebody else. */
  while (progress < 100 && still++ < 200) {
    char* status = Tessarin_GetSatCRProgress(TUNER);
    if (status && number_of(status, "Progress") > progress) still = 0;
    progress = status ? number_of(status, "Progress") : 100;
    frequency = status ? number_of(status, "SlotFrequency") : -1;
    free(status);
    nanosleep(&pause, NULL);
  }
  const bool found = Tessarin_IsSatCRCommandSuccess(TUNER, frequency, 1);
  Tessarin_SendSatCRCommand(TUNER, TESSARIN_SATCR_STOP);
  const int stored = found ? Tessarin_SetSatCRSlotFrequency(TUNER, frequency) : -1;
  printf("slot: found %d, stored %d, now %d MHz\n", found, stored, Tessarin_GetSlotFrequency(TUNER));
}

static void drive_dish(void) {
  Tessarin_InstallerStorePosition();
  Tessarin_InstallerResetLimit();
  Tessarin_UserStorePosition();
  printf("tuned: %d\n", Tessarin_TuneAloneSelectedTransponder(true));
  Tessarin_InstallerGoToZero();
}

static void fine_tune(void) {
  Tessarin_PresetTunerMft(STEPS);
  Tessarin_SetTunerMft();
  Tessarin_SetFineTuneType();
  Tessarin_SetFinetuneFreq(STEPS);
  printf("fine tune: %d steps", Tessarin_GetTunerMft());
  Tessarin_ResetTurnerMft();
  Tessarin_ResetFinetuneType();
  Tessarin_SetFinetuneFreq(0);
  printf(", then %d\n", Tessarin_GetTunerMft());
}

static void lock_rating(void) {
  print_and_free("ratings", Tessarin_GetRatingInfo());
  const int result = Tessarin_SetRRSLock(0, 1, true);
  printf("lock: %d, locked %d\n", result, Tessarin_GetRRSLock(0, 1));
}

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: client ARCHIVE.zip\n");
    return 2;
  }
  print_and_free("date", Tessarin_GetCurrentDateString());
  print_and_free("country", Tessarin_GetCurrentCountryCode());
  print_and_free("text", Tessarin_CombinateStrings("COM_SID_POPUP_WIDGET_SHOW_GUIDE", "3", NULL, NULL, NULL));
  printf("two tuners: %d\n", Tessarin_FlagVisibleSatCRTwoTuner());
  find_slot();
  drive_dish();
  fine_tune();
  lock_rating();
  Tessarin_InitiateExportToTemp(argv[1]);
  printf("list: %d\n", Tessarin_LoadCopiedChannelList(argv[1]));
  printf("reset: %d\n", Tessarin_ResetSatelliteSettings());
  return 0;
}
