// The main of a benchmark that needs nothing set up before it runs.
#include "BenchRun.h"

int main(int argc, char** argv) {
    return zt::bench::runRegistered(argc, argv);
}
