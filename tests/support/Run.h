#pragma once

namespace ledgora::test {

/// Runs the tests of the program on a platform of the toolkit, with everything fixed that could differ by machine.
int runTests(int argc, char **argv, const char *platform);

} // namespace ledgora::test
