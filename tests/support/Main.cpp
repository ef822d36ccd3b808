#include "Run.h"

int main(int argc, char **argv)
{
    return ledgora::test::runTests(argc, argv, "offscreen");
}
