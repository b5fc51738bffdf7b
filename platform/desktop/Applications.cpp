#include "Applications.h"

#include <json/json.h>
#include <unistd.h>

#include <cstring>
#include <sstream>

#include "Gate.h"
#include "app_framework.h"

namespace desktop {

namespace {

std::string ToJson(const std::map<std::string, std::string>& extra) {
  Json::Value object(Json::objectValue);
  for (const auto& [key, value] : extra) object[key] = value;
  Json::StreamWriterBuilder builder;
  builder["indentation"] = "";
  builder["emitUTF8"] = true;
  return Json::writeString(builder, object);
}

}  // namespace

std::vector<Launch> OwnLaunches() {
  std::vector<Launch> launches;
  Query q("SELECT application, extra FROM launch WHERE pid = ? ORDER BY seq", static_cast<int>(getpid()));
  while (q.Row()) {
    Launch launch{q.Text(0), {}};
    Json::Value object;
    std::istringstream(q.Text(1)) >> object;
    for (const auto& key : object.getMemberNames()) launch.extra[key] = object[key].asString();
    launches.push_back(std::move(launch));
  }
  return launches;
}

}  // namespace desktop

using namespace desktop;

int app_control_create(app_control_h* handle) {
  return Gate::Pass<int>(op::app_control_create, Entry(), [&](Entry&) {
    *handle = new app_control_s;
    return 0;
  });
}

int app_control_destroy(app_control_h handle) {
  return Gate::Pass<int>(op::app_control_destroy, Entry(), [&](Entry&) {
    delete handle;
    return 0;
  });
}

int app_control_set_operation(app_control_h handle, const char* operation) {
  return Gate::Pass<int>(op::app_control_set_operation, Entry(operation), [&](Entry&) {
    if (!handle || !operation) return -1;
    handle->operation = operation;
    return 0;
  });
}

int app_control_set_app_id(app_control_h handle, const char* app_id) {
  return Gate::Pass<int>(op::app_control_set_app_id, Entry(app_id), [&](Entry&) {
    if (!handle || !app_id) return -1;
    handle->application = app_id;
    return 0;
  });
}

int app_control_add_extra_data(app_control_h handle, const char* key, const char* value) {
  return Gate::Pass<int>(op::app_control_add_extra_data, Entry(key, value), [&](Entry&) {
    if (!handle || !key || !value) return -1;
    handle->extra[key] = value;
    return 0;
  });
}

int app_control_get_extra_data(app_control_h handle, const char* key, char** value) {
  return Gate::Pass<int>(op::app_control_get_extra_data, Entry(key), [&](Entry& entry) {
    if (!handle || !key) return -1;
    const auto found = handle->extra.find(key);
    if (found == handle->extra.end()) return -1;
    entry.Out(found->second);
    *value = strdup(found->second.c_str());
    return 0;
  });
}

int app_control_send_launch_request(app_control_h handle, app_control_reply_cb, void*) {
  const std::string application = handle ? handle->application : "";
  const std::string extra = handle ? ToJson(handle->extra) : "{}";
  return Gate::Pass<int>(op::app_control_send_launch_request, Entry(application, extra), [&](Entry&) {
    // No application of this machine offers any other operation.
    if (application.empty() || handle->operation != APP_CONTROL_OPERATION_DEFAULT) return -1;
    Store::Get().Write([&] {
      Query("INSERT INTO launch (pid, application, extra) VALUES (?, ?, ?)", static_cast<int>(getpid()), application,
            extra)
          .Run();
      Query("INSERT INTO application VALUES (?, 1) ON CONFLICT (id) DO UPDATE SET running = 1", application).Run();
    });
    return 0;
  });
}

int app_manager_is_running(const char* app_id, bool* running) {
  return Gate::Pass<int>(op::app_manager_is_running, Entry(app_id), [&](Entry& entry) {
    if (!app_id) return -1;
    Query q("SELECT running FROM application WHERE id = ?", app_id);
    *running = q.Row() && q.Int(0) != 0;
    entry.Out(*running);
    return 0;
  });
}
