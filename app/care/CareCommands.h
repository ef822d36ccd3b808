#pragma once

namespace ledgora::app {

struct CommandLine;

/// The commands that look after an office's data: sample, check, backup, restore. Prints what came of it; returns the
/// exit status: 0 done and nothing found, 1 failed (one line on the error output) or something found.
int runCareCommand(CommandLine line);

} // namespace ledgora::app
