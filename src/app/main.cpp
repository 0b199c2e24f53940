// SPDX-License-Identifier: MIT
// The whole program: runs a word of the command line on the store, or starts and stays.
#include "app/TarnwickApp.h"

int main(int argc, char** argv) { return tarnwick::TarnwickApp::main(argc, argv); }
