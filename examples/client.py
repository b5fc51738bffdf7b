#!/usr/bin/env python3
"""The settings of a TV from Python, without a window:

    QUIRELLE_TV=tv.db python3 client.py /tmp/list.zip

Says what TV this is, finds a slot on the single cable, drives the dish, tries a fine tune, lists and locks ratings, and
writes and loads the channel list. $TESSARIN_LIBRARY names the library where the system does not find it.
"""
import ctypes
import json
import os
import sys
import time
from ctypes import c_bool, c_char_p, c_int, c_void_p

library = ctypes.CDLL(os.environ.get("TESSARIN_LIBRARY", "libquirelle.so"))
libc = ctypes.CDLL(None)
libc.free.argtypes = [c_void_p]
libc.free.restype = None

TUNER, STEPS = 0, 5
DETECT, STOP = 0, 2


def function(name, result, *arguments):
    found = getattr(library, "Tessarin_" + name)
    found.restype, found.argtypes = result, arguments
    return found


def text(name, *arguments):
    """A function whose text is ours to free: as c_char_p its address would be lost."""
    call = function(name, c_void_p, *arguments)

    def owned(*values):
        address = call(*values)
        if not address:
            return None
        try:
            return ctypes.string_at(address).decode(errors="replace")
        finally:
            libc.free(address)

    return owned


combinate_strings = text("CombinateStrings", *[c_char_p] * 5)
country_code = text("GetCurrentCountryCode")
date_string = text("GetCurrentDateString")
rating_info = text("GetRatingInfo")
satcr_progress = text("GetSatCRProgress", c_int)
two_tuners = function("FlagVisibleSatCRTwoTuner", c_bool)
send_satcr_command = function("SendSatCRCommand", c_bool, c_int, c_int)
is_satcr_command_success = function("IsSatCRCommandSuccess", c_bool, c_int, c_int, c_int)
slot_frequency = function("GetSlotFrequency", c_int, c_int)
set_slot_frequency = function("SetSatCRSlotFrequency", c_int, c_int, c_int)
user_store_position = function("UserStorePosition", None)
installer_store_position = function("InstallerStorePosition", None)
installer_go_to_zero = function("InstallerGoToZero", None)
installer_reset_limit = function("InstallerResetLimit", None)
tune_alone = function("TuneAloneSelectedTransponder", c_int, c_bool)
reset_satellite_settings = function("ResetSatelliteSettings", c_int)
tuner_mft = function("GetTunerMft", c_int)
preset_tuner_mft = function("PresetTunerMft", None, c_int)
set_tuner_mft = function("SetTunerMft", None)
reset_tuner_mft = function("ResetTurnerMft", None)
set_fine_tune_type = function("SetFineTuneType", None)
reset_fine_tune_type = function("ResetFinetuneType", None)
set_fine_tune_offset = function("SetFinetuneFreq", None, c_int)
rating_lock = function("GetRRSLock", c_bool, c_int, c_int)
set_rating_lock = function("SetRRSLock", c_int, c_int, c_int, c_bool)
export_list = function("InitiateExportToTemp", None, c_char_p)
load_list = function("LoadCopiedChannelList", c_int, c_char_p)


def find_slot():
    if not send_satcr_command(TUNER, DETECT):
        return print("slot: cannot be read")
    status, still = {"Progress": 0}, 0
    # A run that does not come on for 10 seconds has been ended by somebody else.
    while status["Progress"] < 100 and still < 200:
        before, status = status, json.loads(satcr_progress(TUNER))
        still = 0 if status["Progress"] > before["Progress"] else still + 1
        time.sleep(0.05)
    found = is_satcr_command_success(TUNER, status["SlotFrequency"], 1)
    send_satcr_command(TUNER, STOP)
    stored = set_slot_frequency(TUNER, status["SlotFrequency"]) if found else -1
    print(f"slot: found {found:d}, stored {stored}, now {slot_frequency(TUNER)} MHz")


def drive_dish():
    installer_store_position()
    installer_reset_limit()
    user_store_position()
    print("tuned:", tune_alone(True))
    installer_go_to_zero()


def fine_tune():
    preset_tuner_mft(STEPS)
    set_tuner_mft()
    set_fine_tune_type()
    set_fine_tune_offset(STEPS)
    kept = tuner_mft()
    reset_tuner_mft()
    reset_fine_tune_type()
    set_fine_tune_offset(0)
    print(f"fine tune: {kept} steps, then {tuner_mft()}")


def lock_rating():
    print("ratings:", rating_info() or "none")
    print(f"lock: {set_rating_lock(0, 1, True)}, locked {rating_lock(0, 1):d}")


def main(archive):
    print("date:", date_string())
    print("country:", country_code())
    print("text:", combinate_strings(b"COM_SID_POPUP_WIDGET_SHOW_GUIDE", b"3", None, None, None))
    print(f"two tuners: {two_tuners():d}")
    find_slot()
    drive_dish()
    fine_tune()
    lock_rating()
    export_list(os.fsencode(archive))
    print("list:", load_list(os.fsencode(archive)))
    print("reset:", reset_satellite_settings())


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: client.py ARCHIVE.zip")
    main(sys.argv[1])
