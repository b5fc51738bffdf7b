#include "Gate.h"
#include "app_manager.h"

using namespace desktop;

int app_manager_pause_app(const char* app_id) {
  return Gate::Pass<int>(op::app_manager_pause_app, Entry(app_id), [&](Entry&) {
    if (!app_id) return -1;
    Query q("SELECT running FROM application WHERE id = ?", app_id);
    return q.Row() && q.Int(0) ? 0 : -1;
  });
}
