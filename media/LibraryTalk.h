#pragma once

namespace media::LibraryTalk {

/// Nothing that the library says reaches the terminal: what fails is told by MediaError, in the program's
/// words. What it says of patched damage goes to the codec's DamageWatch.
void Silence();

/// Whether the library refused a picture on this thread for its size since Forget; it tells so by its talk
/// alone.
bool ToldOfHugePicture();
void Forget();

} // namespace media::LibraryTalk
