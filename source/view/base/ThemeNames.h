// Every name of the theme that the program uses: groups, parts, styles, signals. Nowhere else.
#pragma once

#include <string>

namespace theme {

// Popups.
inline constexpr const char* kTitle = "title,text";
inline constexpr const char* kContent = "elm.swallow.content";
inline constexpr const char* kButtonParts[] = {"button1", "button2", "button3"};
inline constexpr const char* kBottomLarge = "C_PopupBasic_WhiteBottomLarge";
inline constexpr const char* kSmallBottom = "P_PopupSmallBottom_01";
inline constexpr const char* kBottom = "C_PopupBasic_WhiteBottom";
inline constexpr const char* kRight = "C_PopupBasic_WhiteRight";
inline constexpr const char* kRightLarge = "C_PopupBasic_WhiteRightLarge";
inline constexpr const char* kDropDown = "C_ListDropdown_White";
inline constexpr const char* kSpinnerPopup = "C_Spincontrol_White";
inline constexpr const char* kDim50 = "theme,dimmed,percent,50";
inline constexpr const char* kUndim = "theme,undim";
inline constexpr const char* kHideBackground = "elm,popup,content,bg,hide";
inline constexpr const char* kSource = "elm";

// Widgets.
inline constexpr const char* kButton = "C_ButtonBasic_WhiteText";
inline constexpr const char* kFocusHighlight = "elmtv";
inline constexpr const char* kProgress = "c_progress_basic";
inline constexpr const char* kProgressPart = "elm.swallow.progressbar";
inline constexpr const char* kNoticeLabel = "popup/P_PopupSmallBottom_01";
inline constexpr const char* kLabelText = "elm.text";
inline constexpr const char* kDim = "dimRect";

// Lists.
inline constexpr const char* kRow = "C_TextItem_WhiteSingleline01";
inline constexpr const char* kRowLite = "C_TextItem_WhiteSingleline01_Lite";
inline constexpr const char* kRowGrey = "C_TextItem_WhiteSingleline01_GreyText_Lite";
inline constexpr const char* kRowValue = "C_TextItem_WhiteSingleline05";
inline constexpr const char* kRowValueLite = "C_TextItem_WhiteSingleline05_Lite";
inline constexpr const char* kRowValueGrey = "C_TextItem_WhiteSingleline05_GreyText_Lite";
inline constexpr const char* kRowText = "elm.text";
inline constexpr const char* kRowValueText = "elm.text.1";
inline constexpr const char* kRowValueTextReversed = "elm.text.1.rtl";
inline constexpr const char* kListDefault = "default";
inline constexpr const char* kListGround = "list_ground";
inline constexpr const char* kItemFocus = "theme,state,focus";
inline constexpr const char* kItemUnfocus = "theme,state,unfocus";
inline constexpr const char* kItemDimmed = "elm,state,dimmed";
inline constexpr const char* kItemUndimmed = "elm,state,undimmed";
inline constexpr const char* kItemContent = "elm.swallow.content.1";
inline constexpr const char* kItemContentDimmed = "theme,state,dimmed";
inline constexpr const char* kItemContentUndimmed = "theme,state,undimmed";
inline constexpr const char* kItemIconTwoTexts = "theme,singleline,icon,2text";
inline constexpr const char* kItemIconText = "theme,singleline,icon,text";
inline constexpr const char* kShowTopShadow = "theme,show,dropdown,top,shadow";
inline constexpr const char* kHideTopShadow = "theme,hide,dropdown,top,shadow";
inline constexpr const char* kShowBottomShadow = "theme,show,dropdown,bottom,shadow";
inline constexpr const char* kHideBottomShadow = "theme,hide,dropdown,bottom,shadow";

// Spinner.
inline constexpr const char* kSpinner = "vertical/C_Spincontrol_White";
inline constexpr const char* kSpinnerTouch = "vertical/C_Spincontrol_White_Touch";
inline constexpr const char* kIncrease = "spinner/increase/vertical/C_Spincontrol_White";
inline constexpr const char* kIncreaseTouch = "spinner/increase/vertical/C_Spincontrol_White_Touch";
inline constexpr const char* kDecrease = "spinner/decrease/vertical/C_Spincontrol_White";
inline constexpr const char* kDecreaseTouch = "spinner/decrease/vertical/C_Spincontrol_White_Touch";
inline constexpr const char* kIncreasePart = "elm.swallow.inc_button";
inline constexpr const char* kDecreasePart = "elm.swallow.dec_button";
inline constexpr const char* kSpinnerFocusPart = "elm.swallow.focus";
inline constexpr const char* kActionFocus = "elm,action,focus";
inline constexpr const char* kActionUnfocus = "elm,action,unfocus";
inline constexpr const char* kPressed = "elm,anim,activate";

// Bottom context popup.
inline constexpr const char* kBottomList = "picturemodepopup_2017";
inline constexpr const char* kBottomListContrast = "picturemodepopup_2017_hc";
inline constexpr const char* kBottomListTitle = "elm.text.sliding";
inline constexpr const char* kBottomListSize = "genlist_rect";
inline constexpr const char* kBottomListPart = "genlist";
inline constexpr const char* kRise = "animations_start_first_step";
inline constexpr const char* kRisen = "startanimfinish";
inline constexpr const char* kSink = "animations_end_first_step";
inline constexpr const char* kSunk = "endanimfinish";
inline constexpr const char* kClickedOutside = "clicked_outside";

// Information windows.
inline constexpr const char* kInformation = "signalinfo_content";
inline constexpr const char* kInformationText = "elm.content.text";
inline constexpr const char* kInformationItems = "elm.content.swallow.items";
inline constexpr const char* kInformationAction = "elm.content.swallow.action";
inline constexpr const char* kInformationActionShown = "elm,state,action,visible";
inline constexpr const char* kInformationActionPad = "pad.elm.content.swallow.action";
inline constexpr const char* kInformationImage = "elm.content.swallow.image";
inline constexpr const char* kInformationImagePad = "pad.elm.content.swallow.image";
inline constexpr const char* kSignalImage = "signalinfo_atsc_image";
/// Its source is the level in two digits, 00 to 10.
inline constexpr const char* kSignalLevel = "signal";
inline constexpr const char* kFact = "styleSignalInfo.2Text";
inline constexpr const char* kFactAbbreviated = "styleSignalInfo.2TextAbbr";
inline constexpr const char* kMeasure = "styleSignalInfo.2Text.1progressbar";
inline constexpr const char* kMeasureAbbreviated = "styleSignalInfo.2TextAbbr.1progressbar";
inline constexpr const char* kMeasureBar = "elm.swallow.progressbar";
inline constexpr const char* kMeasureBarStyle = "C_ProgressBar_White";
inline constexpr const char* kHistory = "weakhistory_content";
inline constexpr const char* kHistoryEmpty = "elm,state,items,empty";

// Fine tune.
inline constexpr const char* kFineTune = "finetune_layout";
inline constexpr const char* kFineTuneSlider = "sliderswallow";
inline constexpr const char* kFineTuneChannel = "channeltext";
inline constexpr const char* kFineTuneStatus = "finetunetitle";
inline constexpr const char* kFineTuneStatusReversed = "finetunedtext";
inline constexpr const char* kShowStatus = "show_status";
inline constexpr const char* kHideStatus = "hide_status";
inline constexpr const char* kSlider = "C_SliderBasic_WhiteH";
inline constexpr const char* kPopupTitle = "elm.text.title";

// TV rating.
inline constexpr const char* kRatingGrid = "tv_rating_style";
inline constexpr const char* kRatingCheck = "menu_tvrating_checkbox";
/// Followed by 1 to 12: column heads, then row heads.
inline constexpr const char* kRatingText = "text";
/// Followed by 0 to 17.
inline constexpr const char* kRatingBox = "check";

/// A part that comes in numbers.
inline std::string Numbered(const char* part, int number) { return part + std::to_string(number); }

}  // namespace theme
