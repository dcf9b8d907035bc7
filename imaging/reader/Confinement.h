#pragma once

/// Gives up, for the rest of this process, everything that decoding a picture from memory does not need:
/// files, also those that are open beyond the standard three, network, other processes, executable memory;
/// and bounds memory (1.5 GiB) and processor time (20 s). What is asked for nevertheless fails as forbidden.
/// False when the system does not grant it.
bool ConfineThisProcess();
