#include "Lines.h"

#include <algorithm>

#include "ThemeNames.h"
#include "Utils.h"

namespace {

/// What a line may be wider when it is drawn than when it is measured.
constexpr int kSlack = 12;
constexpr int kHigh = 10'000, kWide = 100'000;
constexpr const char* kBreak = "<br>";
/// The first bytes of Arabic letters; the face has them stand far apart.
constexpr const char* kArabic = "\xD8\xD9\xDA\xDB";
constexpr const char* kSentenceEnds[] = {". ", "? ", "! ", "\xD8\x9F "};

/// A text block like one of a layout, on no screen.
class Block {
 public:
  Block(Evas_Object* layout, const char* part)
      : m_like(edje_object_part_object_get(elm_layout_edje_get(layout), part)),
        m_block(evas_object_textblock_add(evas_object_evas_get(layout))) {
    evas_object_scale_set(m_block, evas_object_scale_get(m_like));
    // The toolkit changes no style that it hands out.
    evas_object_textblock_style_set(m_block,
                                    const_cast<Evas_Textblock_Style*>(evas_object_textblock_style_get(m_like)));
  }
  ~Block() { evas_object_del(m_block); }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;

  int Lines(const std::string& markup, int width) {
    m_Show(markup, width);
    Evas_Textblock_Cursor* cursor = evas_object_textblock_cursor_new(m_block);
    evas_textblock_cursor_paragraph_last(cursor);
    const int last = evas_textblock_cursor_line_geometry_get(cursor, nullptr, nullptr, nullptr, nullptr);
    evas_textblock_cursor_free(cursor);
    return last + 1;
  }

  int Width(const std::string& markup) {
    m_Show(markup, kWide);
    int width = 0;
    evas_object_textblock_size_native_get(m_block, &width, nullptr);
    return width;
  }

 private:
  void m_Show(const std::string& markup, int width) {
    evas_object_resize(m_block, width, kHigh);
    evas_object_textblock_text_markup_set(m_block, markup.c_str());
  }

  const Evas_Object* m_like;
  Evas_Object* m_block;
};

/// Each line for itself: one of other letters stands as it is.
std::string Closer(const std::string& markup) {
  std::string closer;
  for (size_t at = 0; at <= markup.size();) {
    const size_t end = std::min(markup.find(kBreak, at), markup.size());
    const std::string line = markup.substr(at, end - at);
    const bool arabic = line.find_first_of(kArabic) != std::string::npos;
    closer += arabic ? "<linerelsize=62%>" + line + "</linerelsize>" : line;
    if (end < markup.size()) closer += kBreak;
    at = end + std::string_view(kBreak).size();
  }
  return closer;
}

/// Where the first sentence ends, or nowhere.
size_t SentenceEnd(const std::string& markup) {
  size_t first = std::string::npos;
  for (const char* mark : kSentenceEnds) {
    const size_t at = markup.find(mark);
    if (at != std::string::npos) first = std::min(first, at + std::string_view(mark).size() - 1);
  }
  return first;
}

int EvenWidth(Block& block, const std::string& markup, int most) {
  const int lines = block.Lines(markup, most);
  if (lines < 2 || markup.find(kBreak) != std::string::npos) return most;
  if (const size_t end = SentenceEnd(markup); end != std::string::npos) {
    const int sentence = block.Width(markup.substr(0, end)) + 2;
    const size_t word = markup.find(' ', end + 1);
    const bool breaksThere = block.Width(markup.substr(0, word)) > sentence;
    if (breaksThere && sentence <= most && block.Lines(markup, sentence) == lines) return sentence;
  }
  int least = most / 2;
  while (most - least > 8) {
    const int middle = (least + most) / 2;
    (block.Lines(markup, middle) > lines ? least : most) = middle;
  }
  return most;
}

}  // namespace

void SetLines(Evas_Object* layout, const char* part, const std::string& markup, int width) {
  if (!layout) return;
  elm_layout_text_set(layout, part, Closer(markup).c_str());
  Block block(layout, part);
  const int room = std::max(1, Utils::Scaled(layout, width));
  const int even = EvenWidth(block, markup, room);
  const auto tell = [layout](const char* what, int value) {
    elm_layout_signal_emit(layout, what, std::to_string(value).c_str());
  };
  tell(theme::kLines, block.Lines(markup, even));
  if (even < room) tell(theme::kLineWidth, (even + kSlack) * width / room);
  edje_object_message_signal_process(elm_layout_edje_get(layout));
  elm_layout_sizing_eval(layout);
}
