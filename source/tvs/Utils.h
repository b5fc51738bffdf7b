// Helpers that the windows share.
#pragma once

#include <Elementary.h>

#include <string>

#include "ItemStatus.h"

class TSSatCRSettings;

class Utils {
 public:
  // Product and accessibility flags; an unreadable one is false.
  static bool IsHighContrastOn();
  static bool FlagVoiceGuideSetting();
  static bool FlagTouchSupport();
  static bool FlagOptionTV();
  static bool FlagReverseMode();

  // Theme and texts.

  /// Path of the theme file, high contrast or dark.
  static std::string GetEDJFile();
  /// The text of a string ID; the ID itself when the catalogue lacks it.
  static std::string GetTranslationStr(const char* id);
  /// Gives a colour class of the theme the colour of one of the TV's chips.
  static void setColorChips(const char* colorClass, const char* chip);
  static void DisableBgRect(Evas_Object* popup);

  // Layout.

  /// Pixels of a 1920-pixel screen as pixels of this one, scaled as `object` is.
  static int Scaled(const Evas_Object* object, double pixels);

  /// Wraps `object` in a table on `parent` that is at least w x h pixels of a 1920-pixel screen, scaled with
  /// the interface where `scaled` is set. The caller owns the table, and the table the object.
  static Evas_Object* WidgetMinSet(Evas_Object* object, Evas_Object* parent, int w, int h, int scaled);

  /// The same with margins around the object: the first at its leading top, the second at its trailing bottom.
  static Evas_Object* WidgetMinSetWithGap(Evas_Object* object, Evas_Object* parent, int w, int h, int leadingGap,
                                          int trailingGap, int scaled);
  /// An unseen table of at least that size.
  static Evas_Object* CreateRectTable(Evas_Object* parent, int w, int h, int scaled);
  /// Gives an object the colour of a colour class.
  static void SetObjectColor(Evas_Object* object, const char* colorClass);
  /// Whether a row of a genlist is on the screen: only then can it take the focus, which the toolkit loses otherwise.
  static bool IsRowMade(Elm_Object_Item* row);
  static void SetObjectItemFocus(Elm_Object_Item* item);
  /// Gives a row the look of a status. A row that is just made keeps the focus that the toolkit gave it: the second
  /// takes none away.
  static void ApplyItemHighlight(Elm_Object_Item* item, ITEM_STATUS status);
  static void ApplyRealizedListItemHighlight(Elm_Object_Item* item, ITEM_STATUS status);

  // Images: null when the file is missing. The caller owns them.

  /// Of the application's own directory of images, or at an absolute path.
  static Evas_Object* GetResource(Evas_Object* parent, const char* name);
  static Evas_Object* GetImageObjectByPath(Evas_Object* parent, const char* path);

  // What the windows share of the TV.

  static bool IsPipOn();
  /// String ID of the product's word for itself.
  static std::string GetProductTypeOSD();
  static bool FlagPanelType82InchSdc();
  /// " " and three letters, empty when they cannot be read; the caller frees it.
  static char* GetCountryCode();
  /// -1 for a key that is no digit.
  static int GetNumberFromKey(const char* keyName);
  static void LaunchNumberPad(const char* key, const char* value);
  static void CloseNumberPad();

  /// `text` with its first `pattern` replaced, at most `size` - 1 bytes of it, into `dst`.
  static void ReplaceSingleText(char* dst, const char* text, const char* pattern, const char* replacement, size_t size);
  static bool CompareDouble(double a, double b);
  /// Takes the heap string over; null is an empty text.
  static std::string WrapMallocdString(char* text);

  // Satellites. Tuner 0 or 1; false leaves `settings` untouched.
  static bool GetSatCRSettings(int slot, TSSatCRSettings& settings);
  static void UserStorePosition();
  static void InstallerStorePosition();
  static void InstallerGoToZero();
  static void InstallerResetLimit();
  static bool ResetSatelliteSettings();

  // The channel list as an archive. Status 0 is success; 1, 2, 4 refuse the archive, 3 is another failure.
  static void ExportChannelList(const std::string& path);
  static int LoadImportedChannelList(const char* zipPath);
  /// Lets the main picture begin anew with the list as it is now.
  static bool ResetService();
};
