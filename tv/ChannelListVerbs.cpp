// The channel list to an archive and back, without a window. The exit status is the service's.
#include <json/json.h>

#include <cstdio>

#include "Notices.h"
#include "Text.h"
#include "Verbs.h"
#include "Words.h"
#include "tvs/ChannelList.h"
#include "tvs_api.h"

using namespace desktop;

namespace {

constexpr const char* kStatusTexts[] = {"done", "no archive of a channel list", "a list of another country",
                                        "the service did not do it", "a list that this TV does not know"};

/// One line that says why; the status.
int Refuse(const std::string& file, int status, const std::string& why) {
  const bool known = status >= kListDone && status <= kListUnknown;
  const std::string text = why.empty() ? kStatusTexts[known ? status : kListFailed] : why;
  const std::string named = text.starts_with(file) ? text : file + ": " + text;
  std::fprintf(stderr, "quirelle-tv: %s\n", OneLine(named).c_str());
  return status;
}

IUtil& Service(CTVSApiWrapper& api) {
  IUtil* util = api.CreateUtil();
  if (!util) throw std::runtime_error(Store::Get().Path() + ": the service does not answer");
  return *util;
}

/// What the TV has now.
void PrintList(const std::string& head) {
  Query q(
      "SELECT (SELECT count(*) FROM service), (SELECT count(*) FROM transponder), (SELECT count(*) FROM satellite)");
  q.Row();
  std::printf("%s: %s channels, %s transponders, %s satellites\n", head.c_str(), q.Text(0).c_str(), q.Text(1).c_str(),
              q.Text(2).c_str());
}

int Export(const Arguments& words) {
  Want(words, 1, 1, "channels export FILE");
  CTVSApiWrapper api;
  if (Service(api).GetServiceDb(words[0]) <= 0) return Refuse(words[0], kListFailed, LastArchiveProblem());
  PrintList("to " + OneLine(words[0]));
  return kListDone;
}

int Import(const Arguments& words) {
  Want(words, 1, 1, "channels import FILE");
  CTVSApiWrapper api;
  const int status = Service(api).SetServiceDb(words[0]);
  if (status != kListDone) return Refuse(words[0], status, LastArchiveProblem());
  SendNotice("tune");
  PrintList("from " + OneLine(words[0]));
  return kListDone;
}

// --- looking into an archive ---------------------------------------------------------------------

void PrintTables(const ListContents& contents, const Manifest& manifest) {
  std::vector<Arguments> rows;
  for (size_t i = 0; i < kListTables; ++i) {
    Arguments& row = rows.emplace_back();
    row = {kListFormatTables[i].entry, std::to_string(manifest.entries[i].records)};
    const ListDifference& change = contents.differences[i];
    for (const int64_t count : {change.added, change.changed, change.removed}) {
      row.push_back(contents.outcome.status == kListDone ? std::to_string(count) : "-");
    }
  }
  PrintTable({"entry", "records", "added", "changed", "removed"}, rows, {false, true, true, true, true});
}

void PrintAsJson(const ListContents& contents, const Manifest& manifest) {
  Json::Value root = ManifestJson(manifest);
  for (size_t i = 0; i < kListTables && contents.outcome.status == kListDone; ++i) {
    Json::Value& entry = root["entries"][kListFormatTables[i].entry];
    entry["added"] = static_cast<Json::Int64>(contents.differences[i].added);
    entry["changed"] = static_cast<Json::Int64>(contents.differences[i].changed);
    entry["removed"] = static_cast<Json::Int64>(contents.differences[i].removed);
  }
  PrintJson(root);
}

int Check(const Arguments& words) {
  constexpr const char* kUsage = "channels check FILE [--json]";
  const Command command = Parse(words, 1, kUsage);
  Want(command.words, 1, 1, kUsage);
  const std::string& file = command.words[0];
  const ListContents contents = CheckChannelList(file);
  if (contents.manifest) {
    const Manifest& manifest = *contents.manifest;
    if (command.json) {
      PrintAsJson(contents, manifest);
    } else {
      std::printf("%s: a list of %s, made %s by %s\n", OneLine(file).c_str(), manifest.country.c_str(),
                  manifest.madeAt.c_str(), manifest.madeBy.c_str());
      PrintTables(contents, manifest);
    }
  }
  return contents.outcome.status == kListDone ? 0 : Refuse(file, contents.outcome.status, contents.outcome.what);
}

constexpr Verb kVerbs[] = {
    {"channels export", "channels export FILE", "writes the channel list to an archive", true, Export},
    {"channels import", "channels import FILE", "takes the channel list of an archive over", true, Import},
    {"channels check", "channels check FILE", "what is in an archive, and what an import would change (--json)", true,
     Check},
};

}  // namespace

std::span<const Verb> ChannelListVerbs() { return kVerbs; }
