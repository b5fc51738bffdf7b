#include "FitRow.h"

#include "Log.h"
#include "Utils.h"

namespace {

constexpr const char* kEllipsis = "\u2026";
/// Room for any text.
constexpr int kWide = 1'000'000;

/// A row of its own, on no screen.
class Ruler {
 public:
  Ruler(Evas_Object* list, const std::string& itemStyle, const char* part, int width)
      : m_row(edje_object_add(evas_object_evas_get(list))), m_part(part) {
    const std::string group = "elm/genlist/item/" + itemStyle + "/default";
    m_isRow = edje_object_file_set(m_row, Utils::GetEDJFile().c_str(), group.c_str());
    if (!m_isRow) LOG_ERROR("No group %s", group.c_str());
    edje_object_scale_set(m_row, elm_object_scale_get(list) * elm_config_scale_get());
    m_width = Utils::Scaled(list, width);
  }
  ~Ruler() { evas_object_del(m_row); }
  Ruler(const Ruler&) = delete;
  Ruler& operator=(const Ruler&) = delete;

  bool HasRoomFor(const std::string& text) const {
    edje_object_part_text_unescaped_set(m_row, m_part, text.c_str());
    return !m_isRow || WidthIn(m_width) == WidthIn(kWide);
  }

 private:
  int WidthIn(int width) const {
    int shown = 0;
    evas_object_resize(m_row, width, 1);
    edje_object_calc_force(m_row);
    edje_object_part_geometry_get(m_row, m_part, nullptr, nullptr, &shown, nullptr);
    return shown;
  }

  Evas_Object* m_row;
  const char* m_part;
  bool m_isRow = false;
  int m_width = 0;
};

/// Where the character ends that begins there.
size_t NextCharacter(const std::string& text, size_t at) {
  do ++at;
  while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
  return at;
}

}  // namespace

std::string FitIntoRow(Evas_Object* list, const char* itemStyle, const char* part, int width, const std::string& name,
                       const std::string& rest) {
  const Ruler row(list, itemStyle, part, width);
  if (row.HasRoomFor(name + rest)) return name + rest;
  std::string fitting = kEllipsis + rest;
  for (size_t end = NextCharacter(name, 0); end < name.size(); end = NextCharacter(name, end)) {
    const std::string longer = name.substr(0, end) + kEllipsis + rest;
    if (!row.HasRoomFor(longer)) break;
    fitting = longer;
  }
  return fitting;
}
