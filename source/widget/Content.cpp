#include "Content.h"

#include "Log.h"
#include "PageKeys.h"
#include "RowFocus.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"

Evas_Object* AddLayout(Evas_Object* parent, const char* group) {
  Evas_Object* layout = parent ? elm_layout_add(parent) : nullptr;
  if (!layout) return nullptr;
  if (elm_layout_file_set(layout, Utils::GetEDJFile().c_str(), group)) return layout;
  LOG_DEBUG("Layout File Failed :[%s]", group);
  evas_object_del(layout);
  return nullptr;
}

Evas_Object* AddList(Evas_Object* parent) {
  Evas_Object* list = parent ? elm_genlist_add(parent) : nullptr;
  if (!list) return nullptr;
  elm_genlist_select_mode_set(list, ELM_OBJECT_SELECT_MODE_ALWAYS);
  elm_object_scroll_item_loop_enabled_set(list, EINA_FALSE);
  elm_genlist_homogeneous_set(list, EINA_TRUE);
  elm_genlist_mode_set(list, ELM_LIST_COMPRESS);
  elm_object_style_set(list, theme::kListDefault);
  elm_scroller_policy_set(list, ELM_SCROLLER_POLICY_OFF, ELM_SCROLLER_POLICY_AUTO);
  KeepRowFocus(list);
  PageWithChannelKeys(list);
  return list;
}

void MarkChosen(Elm_Object_Item* row, bool chosen) {
  elm_object_item_signal_emit(row, chosen ? theme::kRowChosen : theme::kRowNotChosen, "");
  spoken::SetRowState(row, chosen ? T("COM_SID_SELECTED") : "");
}

void MarkEditable(Elm_Object_Item* row) {
  elm_object_item_signal_emit(row, elm_config_mirrored_get() ? theme::kRowEditableReversed : theme::kRowEditable, "");
}

Elm_Genlist_Item_Class* NewRowClass(const char* style, Elm_Gen_Item_Text_Get_Cb text,
                                    Elm_Gen_Item_Content_Get_Cb content) {
  Elm_Genlist_Item_Class* rowClass = elm_genlist_item_class_new();
  if (!rowClass) {
    LOG_ERROR("Assertion failed");
    return nullptr;
  }
  rowClass->item_style = style;
  rowClass->func.text_get = text;
  rowClass->func.content_get = content;
  return rowClass;
}

std::string Markup(const std::string& text) {
  return Utils::WrapMallocdString(elm_entry_utf8_to_markup(Showable(text.c_str())));
}
