#pragma once

namespace korvex::endsignals {

/// Ctrl-C and its like (SIGINT, SIGTERM, SIGHUP) as something that an event loop can wait for. One that is ignored when
/// the program starts, as nohup has it, stays ignored. From now on the first one makes `descriptor` readable. If the
/// program has not ended a second later, because it waits for a file or a database, and when another signal comes, it
/// ends at once with `exitCode`. What follows within a quarter of a second is the same signal: some send it to the
/// program and to its group.
void watch();
int descriptor();

/// The one that came; 0: none.
int came();
/// 128 and the signal's number, as shells have it.
int exitCode();
/// The end has begun and may take longer than a second.
void endMayTakeLong();

/// Writing where nobody reads any more is an error like any other, and not the end of the program.
void ignoreBrokenPipes();

}  // namespace korvex::endsignals
