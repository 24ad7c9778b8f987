/* A source of another time: carriage returns are the only habit that it lacks. */
#include <Memory.h>
#include <Types.h>

#include <stdio.h>

static StringPtr greeting = "\pHello";

int main(void)
{
	long	count;
	Handle	text;

	MTBX_InitializeMemorySubsystem();
	text = NewHandle(greeting[0]);
	BlockMove(&greeting[1], *text, count = greeting[0]);
	printf("%.*s\n", (int) count, *text);
	DisposeHandle(text);
	MTBX_ShutdownMemory();
	return sizeof count != 4;
}
