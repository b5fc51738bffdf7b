// What a demanding eye looks for, measured in every window: no text is cut, sliced or written over another, each
// stands out from its ground, and one thing looks focused.
#define EFL_BETA_API_SUPPORT

#include <Ecore_Evas.h>
#include <Efl_Canvas.h>
#include <Elementary.h>

#include <cmath>
#include <cstring>
#include <iostream>

#include "Harness.h"
#include "Screen.h"
#include "ViewTable.h"

using test::Place;
using test::Remote;
using test::Tv;

namespace {

/// Screen, palette, language and size meet in each other way.
struct Room {
  const char *profile, *language, *contrast, *size, *zoom;
};
constexpr Room kRooms[] = {
    {"america", "en_US.utf8", "0", "normal", "0"}, {"europe", "de_DE.utf8", "1", "small", "0"},
    {"america", "ar_AE.utf8", "1", "normal", "1"}, {"hdmi", "ko_KR.utf8", "0", "small", "0"},
    {"europe", "ar_AE.utf8", "0", "exSmall", "0"}, {"america", "de_DE.utf8", "0", "normal", "1"},
    {"europe", "ko_KR.utf8", "1", "exSmall", "0"}, {"hdmi", "de_DE.utf8", "0", "normal", "0"},
};
/// After each a window is looked at again: at what a button opens, too.
constexpr const char* kKeys[] = {"Up", "Up", "Return", "Down", "Return"};

struct Canvas {
  const unsigned int* pixels;
  int w, h;

  unsigned int At(int x, int y) const { return pixels[y * w + x] & 0xFFFFFF; }
};

Canvas Draw() {
  Ecore_Evas* canvas = ecore_evas_ecore_evas_get(evas_object_evas_get(desktop::Window()));
  ecore_evas_manual_render(canvas);
  Canvas drawn{};
  ecore_evas_geometry_get(canvas, nullptr, nullptr, &drawn.w, &drawn.h);
  drawn.pixels = static_cast<const unsigned int*>(ecore_evas_buffer_pixels_get(canvas));
  return drawn;
}

Place PlaceOf(const Evas_Object* object) {
  Place place{};
  evas_object_geometry_get(object, &place.x, &place.y, &place.w, &place.h);
  return place;
}

Place Common(const Place& a, const Place& b) {
  const int x = std::max(a.x, b.x), y = std::max(a.y, b.y);
  return {x, y, std::min(a.x + a.w, b.x + b.w) - x, std::min(a.y + a.h, b.y + b.h) - y};
}

// --- the texts of the uppermost view --------------------------------------------------------------

bool IsA(const Evas_Object* object, const char* type) { return std::strcmp(evas_object_type_get(object), type) == 0; }

struct Text {
  std::string words;
  Place place;
  /// What is left of it between the edges of what it lies in.
  Place seen;
  /// The room that its words take where nothing presses them.
  int needs, needsHeight;
  bool inList;
};

int WidthOf(const Evas_Object* object) {
  Evas_Object* probe = evas_object_text_add(evas_object_evas_get(object));
  const char* font = nullptr;
  Evas_Font_Size size = 0;
  evas_object_text_font_get(object, &font, &size);
  evas_object_scale_set(probe, evas_object_scale_get(object));
  evas_object_text_font_set(probe, font, size);
  evas_object_text_text_set(probe, evas_object_text_text_get(object));
  const int width = PlaceOf(probe).w;
  evas_object_del(probe);
  return width;
}

/// Where a block's lines stand in it, without the room that its font leaves above and below.
Place Letters(const Evas_Object* block, const Text& text) {
  const int room = text.needsHeight / 4;
  const auto above = (text.place.h - text.needsHeight) * evas_object_textblock_valign_get(block);
  return {text.place.x, text.place.y + static_cast<int>(above) + room, text.place.w, text.needsHeight - 2 * room};
}

/// Opaque enough to be meant to be read, within the clippers.
bool Crop(const Evas_Object* object, Place& seen) {
  int opacity = 255, a = 0;
  for (const Evas_Object* o = object; o; o = evas_object_clip_get(o)) {
    evas_object_color_get(o, nullptr, nullptr, nullptr, &a);
    opacity = opacity * a / 255;
    if (!evas_object_visible_get(o)) return false;
    if (o != object) seen = Common(seen, PlaceOf(o));
  }
  return opacity > 200 && seen.w > 0 && seen.h > 0;
}

void Take(Evas_Object* object, bool inList, std::vector<Text>& texts) {
  if (!evas_object_visible_get(object)) return;
  inList = inList || IsA(object, "elm_genlist");
  Text text{"", PlaceOf(object), PlaceOf(object), 0, 0, inList};
  if (IsA(object, "text")) {
    const char* words = evas_object_text_text_get(object);
    text.words = words ? words : "";
    text.needs = WidthOf(object);
    text.needsHeight = text.place.h;
  } else if (IsA(object, "textblock")) {
    const char* words = evas_object_textblock_text_markup_get(object);
    text.words = words ? words : "";
    evas_object_textblock_size_formatted_get(object, &text.needs, &text.needsHeight);
    text.seen = text.place = Letters(object, text);
  }
  if (text.words.find_first_not_of(" \n") != std::string::npos && Crop(object, text.seen)) texts.push_back(text);
  if (!efl_isa(object, EFL_CANVAS_GROUP_CLASS)) return;
  Eina_List* members = evas_object_smart_members_get(object);
  void* member = nullptr;
  EINA_LIST_FREE(members, member) Take(static_cast<Evas_Object*>(member), inList, texts);
}

Evas_Object* Uppermost(Evas_Object* object) {
  const char* name = evas_object_name_get(object);
  if (name && std::strncmp(name, "view:", 5) == 0 && evas_object_visible_get(object)) return object;
  if (!efl_isa(object, EFL_CANVAS_GROUP_CLASS)) return nullptr;
  Evas_Object* found = nullptr;
  Eina_List* members = evas_object_smart_members_get(object);
  void* member = nullptr;
  EINA_LIST_FREE(members, member) {
    if (Evas_Object* within = Uppermost(static_cast<Evas_Object*>(member))) found = within;
  }
  return found;
}

std::vector<Text> TextsInSight() {
  std::vector<Text> texts;
  const Evas* canvas = evas_object_evas_get(desktop::Window());
  for (Evas_Object* o = evas_object_top_get(canvas); o; o = evas_object_below_get(o)) {
    if (evas_object_smart_parent_get(o)) continue;
    if (Evas_Object* view = Uppermost(o)) {
      Take(view, false, texts);
      break;
    }
  }
  return texts;
}

// --- what is measured ----------------------------------------------------------------------------

double Luminance(unsigned int colour) {
  double sum = 0;
  for (const auto& [bits, weight] : {std::pair{16, 0.2126}, std::pair{8, 0.7152}, std::pair{0, 0.0722}}) {
    const double part = (colour >> bits & 0xFF) / 255.0;
    sum += weight * (part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
  }
  return sum;
}

double Contrast(unsigned int a, unsigned int b) {
  const double first = Luminance(a), second = Luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

/// Between the colour that a text mostly stands on and the one furthest from it.
double ContrastOf(const Canvas& canvas, const Place& place) {
  std::map<unsigned int, int> counts;
  for (int y = std::max(0, place.y); y < std::min(canvas.h, place.y + place.h); ++y) {
    for (int x = std::max(0, place.x); x < std::min(canvas.w, place.x + place.w); ++x) ++counts[canvas.At(x, y)];
  }
  const auto most =
      std::max_element(counts.begin(), counts.end(), [](auto& a, auto& b) { return a.second < b.second; });
  double best = 1;
  for (const auto& [colour, count] : counts) best = std::max(best, Contrast(colour, most->first));
  return best;
}

void LookAtTexts(const Canvas& canvas, bool highContrast) {
  const std::vector<Text> texts = TextsInSight();
  for (size_t i = 0; i < texts.size(); ++i) {
    const Text& text = texts[i];
    SCOPED_TRACE(text.words);
    EXPECT_LE(text.needs, text.place.w + 2) << "cut";
    EXPECT_GE(text.seen.w, text.place.w - 2) << "sliced at a side";
    if (!text.inList) {
      EXPECT_GE(text.seen.h, text.place.h - 2) << "sliced above or below";
    }
    EXPECT_TRUE(text.place.x >= 0 && text.place.x + text.place.w <= canvas.w) << "off the screen";
    if (text.seen.h > text.place.h / 2) {
      EXPECT_GE(ContrastOf(canvas, text.seen), highContrast ? 7.0 : 4.5) << "hard to read";
    }
    for (size_t other = i + 1; other < texts.size(); ++other) {
      const Place both = Common(text.seen, texts[other].seen);
      EXPECT_FALSE(both.w > 4 && both.h > text.place.h / 4) << "on top of " << texts[other].words;
    }
  }
}

// --- what looks focused ---------------------------------------------------------------------------

/// Pixels that hang together.
struct Area {
  int left, top, right, bottom, pixels;

  int Width() const { return right - left + 1; }
  int Height() const { return bottom - top + 1; }
};

/// Pictures of shapes that the theme colours come out a step or two beside the palette.
bool IsLike(unsigned int a, unsigned int b) {
  for (const int bits : {16, 8, 0}) {
    if (std::abs(static_cast<int>(a >> bits & 0xFF) - static_cast<int>(b >> bits & 0xFF)) > 2) return false;
  }
  return true;
}

Area Gather(const Canvas& canvas, std::vector<bool>& seen, int start, unsigned int colour) {
  Area area{canvas.w, canvas.h, 0, 0, 0};
  std::vector<int> open = {start};
  seen[start] = true;
  while (!open.empty()) {
    const int at = open.back(), x = at % canvas.w, y = at / canvas.w;
    open.pop_back();
    area = {std::min(area.left, x), std::min(area.top, y), std::max(area.right, x), std::max(area.bottom, y),
            area.pixels + 1};
    for (const auto& [nextX, nextY] : {std::pair{x - 1, y}, {x + 1, y}, {x, y - 1}, {x, y + 1}}) {
      if (nextX < 0 || nextY < 0 || nextX >= canvas.w || nextY >= canvas.h) continue;
      const int next = nextY * canvas.w + nextX;
      if (seen[next] || !IsLike(canvas.At(nextX, nextY), colour)) continue;
      seen[next] = true;
      open.push_back(next);
    }
  }
  return area;
}

/// Plates in the colour of the focus: areas too high and too full for letters, bars and knobs.
int Plates(const Canvas& canvas, bool highContrast, double scale) {
  const unsigned int colour = highContrast ? 0xFFE100 : 0xF3F6FB;
  const int least = static_cast<int>(50 * scale);
  std::vector<bool> seen(static_cast<size_t>(canvas.w) * canvas.h);
  int plates = 0;
  for (int at = 0; at < canvas.w * canvas.h; ++at) {
    if (seen[at] || !IsLike(canvas.At(at % canvas.w, at / canvas.w), colour)) continue;
    const Area area = Gather(canvas, seen, at, colour);
    plates += area.Width() >= least && area.Height() >= least && area.pixels * 5 >= area.Width() * area.Height() * 2;
  }
  return plates;
}

/// A bar that fills by itself has the focus, so that keys come to it, and is nothing to press.
bool HasPlate() {
  const Evas_Object* focus = elm_object_focused_object_get(desktop::Window());
  return test::HasFocus() && std::strcmp(elm_object_widget_type_get(focus), "Efl.Ui.Progressbar_Legacy") != 0;
}

TEST(Looks, NothingIsCutCoveredOrHardToReadAndOneThingLooksFocused) {
  int pictures = 0, focused = 0;
  for (const Room& room : kRooms) {
    Tv tv(room.profile);
    tv.SetLanguage(room.language);
    tv.Set("db/menu/system/accessibility/highcontrast", room.contrast);
    tv.Set("db/uifw/uisize", room.size);
    tv.Set("db/menu/system/accessibility/focuszoom", room.zoom);
    for (const char* stick : {"A", "B"}) tv.PutOnStick(stick, {"one.zip", "two.zip"});
    for (const ViewEntry& entry : ViewTable()) {
      if (!entry.make) continue;
      test::Run({entry.menuID}, [&](Remote& remote) {
        std::string keys = "opened";
        const auto look = [&] {
          if (remote.HasExited() || remote.Stack().empty()) return;
          SCOPED_TRACE(std::string(entry.menuID) + " " + room.profile + " " + room.language + " " + room.size + " " +
                       room.contrast + room.zoom + ": " + keys);
          const Canvas canvas = Draw();
          LookAtTexts(canvas, *room.contrast == '1');
          const double scale = elm_object_scale_get(desktop::Window());
          EXPECT_EQ(Plates(canvas, *room.contrast == '1', scale), HasPlate()) << "look focused";
          focused += HasPlate();
          ++pictures;
        };
        look();
        for (const char* key : kKeys) {
          if (remote.HasExited()) return;
          remote.Press(key);
          // A button that was pressed looks so for a moment.
          remote.Wait(0.2);
          keys += std::string(" ") + key;
          look();
        }
      });
    }
  }
  std::cout << "looks: " << pictures << " pictures, something has the focus in " << focused << std::endl;
}

}  // namespace
