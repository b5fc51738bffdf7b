// What the windows of the rating systems share: a list of ratings, each with its lock, stored as it is changed.
#pragma once

#include <string>
#include <vector>

#include "ViewWindowBase.h"

class CViewRatingWindowBase : public CViewWindowBase {
 public:
  explicit CViewRatingWindowBase(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  struct Rating {
    /// From 0, as in the list.
    int index;
    std::string name;
    bool lock;
  };

  void t_Create() override;
  void t_Destroy() override;
  void t_FirstEnter(std::string& text) override;
  std::string t_GetBaseStyle() override;
  std::vector<Button> t_Buttons() override { return {{"SID_CLOSE"}}; }
  void t_FocusFirst() override;
  void t_ProcessDefaultButtonOneFocusCallBack() override;

  /// Fills `t_RatingNames`.
  virtual void t_SetRatingNames();
  /// Whether a rating is locked when the window opens.
  virtual bool t_InitBlockState(int index);
  /// Stores a lock that was changed in the list, and changes the others that hang on it.
  virtual void t_UpdateRatingInfo(int index, bool lock);

  virtual void t_FillRatingInfoVector();
  /// What is to stand in the window besides the list.
  virtual void t_CreateUserDefinedLayout();
  virtual void t_CreateContent();
  /// Null when there can be none.
  Evas_Object* t_List() const override { return t_pRatingList; }
  virtual Evas_Object* t_CreateGenList(Evas_Object* parent);
  virtual void t_AddGenlistToContent(Evas_Object* list, Evas_Object* parent);
  /// A table with the object on a list's ground, at least w x h, and gaps at two corners; null without an object or a
  /// parent. Pixels of a 1920-pixel screen where `scaled` is 1.
  virtual Evas_Object* t_AddWidgetMinSetWithGap(Evas_Object* object, Evas_Object* parent, int w, int h, int gapW,
                                                int gapH, int scaled);
  /// Shows a lock in the list; nothing happens for a rating that is not in it.
  virtual void t_SetItemStateInfo(int index, bool lock);

  bool t_HasRating(int index) const { return index >= 0 && index < static_cast<int>(t_Ratings.size()); }

  /// String IDs, or names as they are, in the order of the list.
  std::vector<std::string> t_RatingNames;
  /// The rows; not to be changed in number while there is a list.
  std::vector<Rating> t_Ratings;
  Evas_Object* t_pRatingList = nullptr;

 private:
  static std::string m_Spoken(const Rating& rating);
  static char* m_GetItemText(void* data, Evas_Object* list, const char* part);
  static Evas_Object* m_ItemGetContent(void* data, Evas_Object* list, const char* part);
  static void m_ItemSelCB(void* data, Evas_Object* list, void* item);
  void m_Select(Elm_Object_Item* item);
  void m_Change(Elm_Object_Item* item, Rating& rating);
  static void m_ItemRealized(Elm_Object_Item* item);
};
