// The process that is the session manager of a test. It stands apart, because the names that its
// protocol's library defines are at odds with the toolkit's.
#pragma once

/// What the test orders, a byte each: ask the program whether the session may end, and let it ask
/// its user or not; send it home; or let the session go on.
inline constexpr char kAskWithQuestions = 'q';
inline constexpr char kAskWithoutQuestions = 'a';
inline constexpr char kEnd = 'e';
inline constexpr char kGoOn = 'g';

/// Tells its address over `control` in a line, serves one program by the orders that come from
/// there, and tells what the program says as SessionManager::AskToEnd() has it, a line each. Ends
/// the process with the connection.
[[noreturn]] void RunSessionServer(int control);
