// How often the program asks whether a button of the mouse is down. A program that follows a drag so does not read its
// messages, and its thread answers no questions.
#pragma once

namespace replay {

// Puts a count before GetAsyncKeyState for the program and the libraries in its folder. To be called once, before main.
void countButtonLooks();
// On the program's thread, so far.
unsigned buttonLooks();

} // namespace replay
