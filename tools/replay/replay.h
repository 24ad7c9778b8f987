// What a program may tell the player of replays that is linked to it.
#pragma once

// A program that takes messages out of the queue before it acts on them is busy while the queue is empty. The test tells
// whether it has nothing left to do; it is asked on the program's thread, from inside its message loop.
void Replay_SetIdleTest(bool (*isIdle)());
