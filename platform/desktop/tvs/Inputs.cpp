#include "Inputs.h"

#include <regex>

#include "Gate.h"
#include "Proxies.h"
#include "source_api.h"

namespace desktop {

namespace {

constexpr ESource kSources[kHdmiPorts] = {SOURCE_TYPE_HDMI1, SOURCE_TYPE_HDMI2, SOURCE_TYPE_HDMI3, SOURCE_TYPE_HDMI4,
                                          SOURCE_TYPE_HDMI5, SOURCE_TYPE_HDMI6, SOURCE_TYPE_HDMI7, SOURCE_TYPE_HDMI8};

class SourceNames : public CSourceAPI {
 public:
  int GetSourceEditName(ESource source, std::string& name, int option) override {
    return Gate::Pass<int>(op::SourceAPI_GetSourceEditName, Entry(source, option), [&](Entry& entry) {
      Query q("SELECT name FROM input WHERE source = ?", source);
      name = q.Row() ? q.Text(0) : "";
      entry.Out(name);
      return 0;
    });
  }
};

class AVControl : public IAVControl {
 public:
  explicit AVControl(EProfile profile) : m_profile(profile) {}

  int GetResolution(int& videoFormat, TSResolution& resolution) override {
    return Gate::Pass<int>(op::AVControl_GetResolution, Entry(m_profile), [&](Entry& entry) {
      Query q(
          "SELECT i.width, i.height, i.rate, i.progressive, i.format FROM picture p JOIN input i ON i.source = "
          "p.source WHERE p.profile = ?",
          m_profile);
      if (!q.Row()) return -1;
      resolution.horizontal = static_cast<int>(q.Int(0));
      resolution.vertical = static_cast<int>(q.Int(1));
      resolution.frameRate = static_cast<int>(q.Int(2));
      resolution.progressive = q.Int(3) != 0;
      videoFormat = static_cast<int>(q.Int(4));
      entry.Out(resolution.horizontal);
      entry.Out(resolution.vertical);
      entry.Out(resolution.frameRate);
      entry.Out(resolution.progressive);
      entry.Out(videoFormat);
      return 0;
    });
  }

 private:
  EProfile m_profile;
};

/// Runs the change of an input that the TV may not know yet.
template <class... Values>
void Change(ESource source, const char* sql, const Values&... values) {
  Store::Get().Write([&] {
    Query("INSERT OR IGNORE INTO input (source) VALUES (?)", source).Run();
    Query(sql, source, values...).Run();
  });
}

}  // namespace

std::unique_ptr<ITVSProxy> MakeAVControl(EProfile profile) { return std::make_unique<AVControl>(profile); }

ESource HdmiSource(int64_t port) { return kSources[port - 1]; }

std::optional<TSResolution> ParseResolution(const std::string& text) {
  TSResolution resolution;
  if (text == "none") return resolution;
  static const std::regex form("([1-9][0-9]{0,4})x([1-9][0-9]{0,4})@([0-9]{1,3})(\\.([0-9]{1,2}))?([pi])");
  std::smatch parts;
  if (!std::regex_match(text, parts, form)) return std::nullopt;
  std::string fraction = parts[5];
  fraction.resize(2, '0');
  resolution.horizontal = std::stoi(parts[1]);
  resolution.vertical = std::stoi(parts[2]);
  resolution.frameRate = std::stoi(parts[3]) * 100 + std::stoi(fraction);
  resolution.progressive = parts[6] == "p";
  return resolution;
}

void SetInputName(ESource source, const std::string& name) {
  Change(source, "UPDATE input SET name = ?2 WHERE source = ?1", name);
}

void SetInputResolution(ESource source, const TSResolution& resolution) {
  Change(source, "UPDATE input SET width = ?2, height = ?3, rate = ?4, progressive = ?5 WHERE source = ?1",
         resolution.horizontal, resolution.vertical, resolution.frameRate, resolution.progressive ? 1 : 0);
}

void SetInputFormat(ESource source, int64_t format) {
  Change(source, "UPDATE input SET format = ?2 WHERE source = ?1", format);
}

}  // namespace desktop

CSourceAPI* CSourceAPI::Get() {
  static desktop::SourceNames names;
  return &names;
}
