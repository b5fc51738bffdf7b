// The toolkit's speech output module: hands what is read out to the program that loaded it.
#define EFL_BETA_API_SUPPORT

#include <Efl_Core.h>

#include "Speech.h"

namespace {

const desktop::SpeechOutput* Output() {
  return static_cast<const desktop::SpeechOutput*>(efl_key_data_get(efl_main_loop_get(), desktop::kSpeechKey));
}

void (*g_done)(void*) = nullptr;
const void* g_doneData = nullptr;

}  // namespace

extern "C" {

#define MODULE_FUNCTION __attribute__((visibility("default")))

MODULE_FUNCTION int elm_modapi_init(void*) { return 1; }

MODULE_FUNCTION int elm_modapi_shutdown(void*) { return 1; }

MODULE_FUNCTION void out_read(const char* text) {
  if (const auto* output = Output()) output->read(text);
}

MODULE_FUNCTION void out_read_done() {
  if (g_done) g_done(const_cast<void*>(g_doneData));
}

MODULE_FUNCTION void out_cancel() {
  if (const auto* output = Output()) output->cancel();
}

MODULE_FUNCTION void out_done_callback_set(void (*done)(void*), const void* data) {
  g_done = done;
  g_doneData = data;
}

}  // extern "C"
