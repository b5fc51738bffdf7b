#include "AppMain.h"

int main(int argc, char** argv) { return quirelle::main(argc, argv); }
