// SPDX-License-Identifier: MIT
#include "app/Main.h"

int main(int argc, char** argv)
{
    return kelvarin::Main(argc, argv);
}
