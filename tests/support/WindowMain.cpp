#include "Display.h"
#include "Run.h"

int main(int argc, char **argv)
{
    const ledgora::test::Display display;
    return ledgora::test::runTests(argc, argv, "xcb");
}
