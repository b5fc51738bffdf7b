#include "Words.h"

#include <json/json.h>

#include <algorithm>
#include <cstdio>

#include "Text.h"

using namespace desktop;

namespace {

/// A name that is a number in digits counts as one.
bool IsNumber(const Query& q, int column) {
  const std::string text = q.Text(column);
  return !text.empty() && text == std::to_string(q.Int(column));
}

Json::Value JsonOf(const Query& q, int column) {
  if (q.IsNull(column)) return Json::Value();
  return IsNumber(q, column) ? Json::Value(static_cast<Json::Int64>(q.Int(column))) : Json::Value(q.Text(column));
}

size_t Width(const std::string& text) {
  return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

void Want(const Arguments& words, size_t least, size_t most, const char* usage) {
  if (words.size() < least || words.size() > most) throw WordError(std::string("usage: quirelle-tv ") + usage);
}

int64_t Number(const std::string& word, const std::string& what, int64_t least, int64_t most) {
  const auto number = ToNumber(word);
  if (number && *number >= least && *number <= most) return *number;
  throw WordError(what + " '" + word + "': wants " + std::to_string(least) + " to " + std::to_string(most));
}

Command Parse(const Arguments& words, size_t most, const char* usage) {
  Command command;
  for (size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--json") {
      command.json = true;
    } else if (words[i] == "--pip") {
      command.profile = PROFILE_PIP;
    } else if (words[i] == "--limit" && i + 1 < words.size()) {
      command.limit = Number(words[++i], "--limit", 0, INT32_MAX);
    } else if (words[i].starts_with("--")) {
      throw WordError("'" + words[i] + "': usage: quirelle-tv " + usage);
    } else {
      command.words.push_back(words[i]);
    }
  }
  Want(command.words, 0, most, usage);
  return command;
}

void PrintTable(const std::vector<const char*>& names, const std::vector<Arguments>& rows,
                const std::vector<bool>& right) {
  std::vector<size_t> widths;
  widths.reserve(names.size());
  for (const char* name : names) widths.push_back(Width(name));
  for (const Arguments& row : rows) {
    for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Width(row[i]));
  }
  const auto print = [&](size_t i, const std::string& text) {
    const std::string blanks(widths[i] - Width(text), ' ');
    const bool last = i + 1 == names.size();
    std::printf("%s%s", (right[i] ? blanks + text : last ? text : text + blanks).c_str(), last ? "\n" : "  ");
  };
  for (size_t i = 0; i < names.size(); ++i) print(i, names[i]);
  for (const Arguments& row : rows) {
    for (size_t i = 0; i < row.size(); ++i) print(i, row[i]);
  }
}

namespace {

/// What a query has found, both ways.
struct Found {
  Json::Value array = Json::Value(Json::arrayValue);
  std::vector<Arguments> rows;
  std::vector<bool> right;
};

Found Find(Query& q, const std::vector<const char*>& names) {
  Found found;
  found.right.resize(names.size(), true);
  while (q.Row()) {
    Json::Value object;
    Arguments& row = found.rows.emplace_back();
    for (size_t i = 0; i < names.size(); ++i) {
      const int column = static_cast<int>(i);
      object[names[i]] = JsonOf(q, column);
      if (!q.IsNull(column) && !IsNumber(q, column)) found.right[i] = false;
      row.push_back(q.IsNull(column) ? "-" : q.Text(column));
    }
    found.array.append(object);
  }
  return found;
}

}  // namespace

void PrintJson(const Json::Value& value) {
  Json::StreamWriterBuilder builder;
  builder["indentation"] = "  ";
  std::puts(Json::writeString(builder, value).c_str());
}

int Print(Query& q, const std::vector<const char*>& names, bool json) {
  const Found found = Find(q, names);
  if (json) {
    PrintJson(found.array);
  } else {
    PrintTable(names, found.rows, found.right);
  }
  return 0;
}

int Print(const std::vector<Section>& sections, bool json) {
  Json::Value all(Json::objectValue);
  for (const Section& section : sections) {
    const Found found = Find(section.query, section.names);
    all[section.name] = found.array;
    if (json) continue;
    if (&section != &sections.front()) std::puts("");
    PrintTable(section.names, found.rows, found.right);
  }
  if (json) PrintJson(all);
  return 0;
}
