// Tells the TV's self-test what the program is doing, so that it can look on.
#pragma once

extern "C" {

void ST_OPERATION_CALL(const char* operation, int option);

}  // extern "C"
