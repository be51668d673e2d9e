// The real link of a window that sends: its serial port, its socket and its tick timer.
#pragma once
