// Tables that hold objects at a size, colours, images, and the look of list rows.
#include <filesystem>

#include "Log.h"
#include "ThemeNames.h"
#include "Utils.h"
#include "app_framework.h"

namespace {

constexpr const char* kImageDirectory = "/usr/apps/com.vantrel.tv.quirelle/res/images/";

/// Rows without a second content have nothing there to take a signal.
void Dim(Elm_Object_Item* item, const char* contentSignal, const char* itemSignal) {
  Evas_Object* content = elm_object_item_part_content_get(item, theme::kItemContent);
  if (content) elm_object_signal_emit(content, contentSignal, "");
  elm_object_item_signal_emit(item, itemSignal, theme::kSource);
}

Evas_Object* AddSpacer(Evas_Object* table, int column, int row, int w, int h) {
  Evas_Object* spacer = evas_object_rectangle_add(evas_object_evas_get(table));
  evas_object_color_set(spacer, 0, 0, 0, 0);
  evas_object_size_hint_min_set(spacer, w, h);
  elm_table_pack(table, spacer, column, row, 1, 1);
  return spacer;
}

void Fill(Evas_Object* object) {
  evas_object_size_hint_weight_set(object, EVAS_HINT_EXPAND, EVAS_HINT_EXPAND);
  evas_object_size_hint_align_set(object, EVAS_HINT_FILL, EVAS_HINT_FILL);
}

}  // namespace

int Utils::Scaled(const Evas_Object* object, double pixels) {
  return static_cast<int>(pixels * elm_object_scale_get(object) * elm_config_scale_get() / elm_app_base_scale_get());
}

Evas_Object* Utils::WidgetMinSet(Evas_Object* object, Evas_Object* parent, int w, int h, int scaled) {
  Evas_Object* table = CreateRectTable(parent, w, h, scaled);
  if (!table) return nullptr;
  Fill(object);
  elm_table_pack(table, object, 0, 0, 1, 1);
  return table;
}

Evas_Object* Utils::WidgetMinSetWithGap(Evas_Object* object, Evas_Object* parent, int w, int h, int leadingGap,
                                        int trailingGap, int scaled) {
  Evas_Object* table = elm_table_add(parent);
  if (!table) return nullptr;
  const auto size = [&](int pixels) { return scaled ? Scaled(parent, pixels) : pixels; };
  AddSpacer(table, 0, 0, size(leadingGap), size(leadingGap));
  Fill(AddSpacer(table, 1, 1, size(w), size(h)));
  AddSpacer(table, 2, 2, size(trailingGap), size(trailingGap));
  Fill(object);
  elm_table_pack(table, object, 1, 1, 1, 1);
  return table;
}

Evas_Object* Utils::CreateRectTable(Evas_Object* parent, int w, int h, int scaled) {
  Evas_Object* table = elm_table_add(parent);
  if (table) AddSpacer(table, 0, 0, scaled ? Scaled(parent, w) : w, scaled ? Scaled(parent, h) : h);
  return table;
}

void Utils::SetObjectColor(Evas_Object* object, const char* colorClass) {
  int r = 0, g = 0, b = 0, a = 0;
  if (!edje_color_class_get(colorClass, &r, &g, &b, &a, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                            nullptr)) {
    LOG_DEBUG("Failed to Get Color Class");
    return;
  }
  // The canvas wants colours multiplied by their opacity.
  evas_object_color_set(object, r * a / 255, g * a / 255, b * a / 255, a);
  LOG_DEBUG("Color[%s]", colorClass);
}

bool Utils::IsRowMade(Elm_Object_Item* row) {
  Eina_List* made = elm_genlist_realized_items_get(elm_object_item_widget_get(row));
  const bool found = eina_list_data_find(made, row);
  eina_list_free(made);
  return found;
}

void Utils::SetObjectItemFocus(Elm_Object_Item* item) {
  if (IsRowMade(item)) elm_object_item_focus_set(item, EINA_TRUE);
  LOG_INFO("set focus to the object item");
}

void Utils::ApplyRealizedListItemHighlight(Elm_Object_Item* item, ITEM_STATUS status) {
  if (!item) return;
  if (status == ITEM_STATUS_DISABLED) {
    LOG_INFO("send signal dimmed");
    Dim(item, theme::kItemContentDimmed, theme::kItemDimmed);
  } else if (status == ITEM_STATUS_ENABLED) {
    Dim(item, theme::kItemContentUndimmed, theme::kItemUndimmed);
  } else if (status == ITEM_STATUS_FOCUSED) {
    elm_object_item_signal_emit(item, theme::kItemFocus, "");
  }
}

void Utils::ApplyItemHighlight(Elm_Object_Item* item, ITEM_STATUS status) {
  if (status != ITEM_STATUS_UNFOCUSED) return ApplyRealizedListItemHighlight(item, status);
  if (item) elm_object_item_signal_emit(item, theme::kItemUnfocus, "");
}

Evas_Object* Utils::GetResource(Evas_Object* parent, const char* name) {
  if (!parent || !name) {
    LOG_ERROR("Assertion failed");
    return nullptr;
  }
  if (*name == '/') return GetImageObjectByPath(parent, name);
  return GetImageObjectByPath(parent, app_get_deployed_path((std::string(kImageDirectory) + name).c_str()));
}

Evas_Object* Utils::GetImageObjectByPath(Evas_Object* parent, const char* path) {
  if (!parent || !path) {
    LOG_ERROR("Assertion failed");
    return nullptr;
  }
  std::error_code unreadable;
  if (!std::filesystem::is_regular_file(path, unreadable)) {
    LOG_DEBUG("File not found in resource.");
    return nullptr;
  }
  Evas_Object* image = elm_image_add(parent);
  if (!image) return nullptr;
  if (!elm_image_file_set(image, path, nullptr)) {
    evas_object_del(image);
    return nullptr;
  }
  elm_image_no_scale_set(image, EINA_TRUE);
  evas_object_size_hint_align_set(image, 1.0, EVAS_HINT_FILL);
  LOG_DEBUG("Path[%s]", path);
  return image;
}
