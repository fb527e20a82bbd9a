#pragma once

#include "utilities/logging/Timer.h"

// Start-up of the player: the configuration files, the command line and the log streams.

class WorldModel;

// The global world model; only its timer is used: it stamps the log streams opened at start-up.
extern WorldModel wm;

// The timer of `wm`. It is started during static construction and never restarted, so its stamps
// count milliseconds since the process began.
const Timer* startupTimer();

// Registers and reads the configuration index "./Data/ConfigurationData/Config_FileAddresses.conf"
// (as "Config_FileAdresses"), then every configuration file it lists, printing one status line
// per file after it was read. Any unreadable or malformed file stops the program.
void ConfigInitializing();

// Creates the log directory and registers the streams "Main" (stamped; the file
// <Directory>Korvel-<n>.log when "LogMain" is on, else discarding) and "MainOff" (raw; the
// recording <Directory>Korvel-1.log.offline when "Offline" is on and the player is not replaying,
// else discarding).
void LoggersInitializing(int n);
