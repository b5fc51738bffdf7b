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
