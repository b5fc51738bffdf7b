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
inline constexpr const char* kSpinnersPopup = "controlpopup";
inline constexpr const char* kSpinnersPopupContrast = "controlpopup_hc";
inline constexpr const char* kDim50 = "theme,dimmed,percent,50";
inline constexpr const char* kUndim = "theme,undim";
/// It lies above a window.
inline constexpr const char* kAbove = "theme,above";
/// The content is a list in a frame: its margins count for nothing.
inline constexpr const char* kFramedContent = "theme,content,framed";
/// The content has a heading of its own, and a control below it.
inline constexpr const char* kHeadedContent = "theme,content,headed";
/// The content is a list of so many rows, which its source says.
inline constexpr const char* kContentRows = "theme,content,rows";
inline constexpr const char* kHideBackground = "elm,popup,content,bg,hide";
inline constexpr const char* kSource = "elm";

// Sizes of letters.
/// Classes of texts: hints, what rows say, what buttons say; and the data of the theme that names their faces.
inline constexpr const char* kHintLetters = "hint";
inline constexpr const char* kLetters = "words";
inline constexpr const char* kStrongLetters = "strong";
inline constexpr const char* kFace = "face.text";
inline constexpr const char* kStrongFace = "face.strong";

// Widgets.
inline constexpr const char* kButton = "C_ButtonBasic_WhiteText";
inline constexpr const char* kFocusHighlight = "elmtv";
inline constexpr const char* kProgress = "c_progress_basic";
inline constexpr const char* kProgressWhite = "C_ProgressBar_White";
inline constexpr const char* kProgressPart = "elm.swallow.progressbar";
inline constexpr const char* kNoticeLabel = "popup/P_PopupSmallBottom_01";
inline constexpr const char* kLabelText = "elm.text";
inline constexpr const char* kDim = "dimRect";
/// How many lines a message has, and how wide they are; their source is the number.
inline constexpr const char* kLines = "theme,lines";
inline constexpr const char* kLineWidth = "theme,lines,width";

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
inline constexpr const char* kRowBox = "elm.swallow.icon";
/// Marks beside the value: it can be changed.
inline constexpr const char* kRowEditable = "theme,state,editable";
inline constexpr const char* kRowEditableReversed = "theme,state,editable,reversed";
/// The line below a row, which no plate has beside it.
inline constexpr const char* kShowLine = "theme,line,show";
inline constexpr const char* kHideLine = "theme,line,hide";
inline constexpr const char* kRowChosen = "theme,state,chosen";
inline constexpr const char* kRowNotChosen = "theme,state,not,chosen";
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
inline constexpr const char* kSlash = "c_datepicker_white_slash";
inline constexpr const char* kSlashContrast = "c_datepicker_highcontrast_slash";
/// Followed by the number of the spinner that typing has gone on to, from 1.
inline constexpr const char* kShowArrow = "showarrow";
/// With and without arrows; from this source.
inline constexpr const char* kStepping = "selected";
inline constexpr const char* kResting = "unselected";
inline constexpr const char* kRating = "rating";
inline constexpr const char* kMouseDown = "mouse,down,1";
inline constexpr const char* kEvents = "events";

/// Of a value that would be cut in letters of the usual size, and of another.
inline constexpr const char* kLongValue = "theme,value,long";
inline constexpr const char* kShortValue = "theme,value,short";

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
inline constexpr const char* kMeasureBarStyle = kProgressWhite;
inline constexpr const char* kMeasureBarEmpty = "theme,bar,empty";
/// A word in the bar, on its other side in a right-to-left layout.
inline constexpr const char* kMeasureBarWord = "elm.text.word";
inline constexpr const char* kMeasureBarWorded = "theme,bar,worded";
inline constexpr const char* kMeasureBarWordedReversed = "theme,bar,worded,reversed";
inline constexpr const char* kMeasureBarPlain = "theme,bar,plain";
inline constexpr const char* kHistory = "weakhistory_content";
inline constexpr const char* kHistoryEmpty = "elm.text.empty";

// Satellites.
inline constexpr const char* kCheckBox = "C_Checkbox_White";
inline constexpr const char* kSatellites = "satellites_content";
inline constexpr const char* kSatellitesHint = "elm.text";
inline constexpr const char* kSatellitesList = "elm.swallow.list";

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

// Single-cable runs.
inline constexpr const char* kRun = "messagepopuppage";
inline constexpr const char* kRunText = "text1";
inline constexpr const char* kRunPercent = "textpercent";

// The channel list to a stick and back.
inline constexpr const char* kTransferList = "transferchannellist";
inline constexpr const char* kCopyLayout = "progress_layout";
inline constexpr const char* kCopyBar = "progresspart";
inline constexpr const char* kCopyPercent = "progress_textpart";
inline constexpr const char* kCopyText = "content_part";
inline constexpr const char* kTransferEnd = "informing_layout";
/// Followed by 1 to 4: the message, two facts, what comes next.
inline constexpr const char* kTransferEndText = "textpart";
inline constexpr const char* kTransferContrast = "dot_hc";
inline constexpr const char* kTransferImported = "importinfo";
inline constexpr const char* kTransferError = "errorinfo";

// Ratings.
inline constexpr const char* kRatingListCheck = "tvrating_list_checkbox";
inline constexpr const char* kDynamicRating = "dynamic_rating_style";
inline constexpr const char* kDimension = "dimenpart";
inline constexpr const char* kDimensionList = "scroller-part";
inline constexpr const char* kRatingGrid = "tv_rating_style";
inline constexpr const char* kRatingCheck = "menu_tvrating_checkbox";
/// Followed by 1 to 12: column heads, then row heads.
inline constexpr const char* kRatingColumnName = "column.name";
inline constexpr const char* kRatingText = "text";
/// Followed by 0 to 17.
inline constexpr const char* kRatingBox = "check";

/// A part that comes in numbers.
inline std::string Numbered(const char* part, int number) { return part + std::to_string(number); }

}  // namespace theme
