/*
	Doodle.c - draws with the mouse, keeps what was drawn, and draws it again.

	A source as programs for the Macintosh have it. The lines that are different here are marked with "here:", and
	docs/porting.md goes through them.
*/

#include <Types.h>
#include <Memory.h>
#include <QuickDraw.h>
#include <Fonts.h>
#include <Events.h>
#include <Windows.h>
#include <Resources.h>

#define kWindowID		128
#define kHelpID			128
#define kGrowBox		15
#define kSleep			20L

typedef struct {
	long	count;				/* points that follow */
	Point	points[1];
} Stroke, *StrokePtr, **StrokeHandle;

static WindowPtr	gWindow;
static Boolean		gDone;
static Handle		gStrokes;	/* StrokeHandles, one behind the other */

static long CountStrokes(void)
{
	return GetHandleSize(gStrokes) / sizeof(StrokeHandle);
}

static void NumberToString(long number, Str255 text)
{
	unsigned char	digits[12];
	short			count = 0;

	do {
		digits[count++] = '0' + number % 10;
		number /= 10;
	} while (number != 0);
	for (text[0] = 0; count > 0; )
		text[++text[0]] = digits[--count];
}

/* here: the icon fills the box of the clip, and the lines of scroll bars are not drawn with it */
static void DrawGrowBox(WindowPtr window)
{
	RgnHandle	clip = NewRgn();
	Rect		box = window->portRect;

	box.left = box.right - kGrowBox;
	box.top = box.bottom - kGrowBox;
	GetClip(clip);
	ClipRect(&box);
	EraseRect(&box);
	if (window == FrontWindow())
		DrawGrowIcon(window);
	SetClip(clip);
	DisposeRgn(clip);
}

static void DrawStroke(StrokeHandle stroke)
{
	long i;

	PenSize(2, 2);
	MoveTo((**stroke).points[0].h, (**stroke).points[0].v);
	for (i = 0; i < (**stroke).count; i++)
		LineTo((**stroke).points[i].h, (**stroke).points[i].v);
	PenNormal();
}

static void DrawTitle(void)
{
	Str255	text;
	Handle	help = GetResource('TEXT', kHelpID);
	Rect	bar = gWindow->portRect;

	bar.bottom = bar.top + 22;
	FillRect(&bar, &qd.ltGray);
	MoveTo(bar.left, bar.bottom);
	LineTo(bar.right, bar.bottom);
	TextFont(0);
	TextSize(12);
	MoveTo(8, 15);
	DrawString("\pStrokes: ");
	NumberToString(CountStrokes(), text);
	DrawString(text);
	if (help != nil) {
		MoveTo(110, 15);
		DrawText(*help, 0, (short)GetHandleSize(help));
	}
}

static void DrawAll(void)
{
	long	i;

	EraseRect(&gWindow->portRect);
	DrawTitle();
	for (i = 0; i < CountStrokes(); i++)
		DrawStroke(((StrokeHandle *)*gStrokes)[i]);
	DrawGrowBox(gWindow);
}

static void AddPoint(StrokeHandle stroke, Point where)
{
	PtrAndHand(&where, (Handle)stroke, sizeof(Point));
	if (MemError() == noErr)
		(**stroke).count++;
}

static void Doodle(Point where)
{
	long			none = 0;
	StrokeHandle	stroke = (StrokeHandle)NewHandle(sizeof(long));
	Point			last;

	if (stroke == nil)
		return;
	BlockMove(&none, *stroke, sizeof(long));
	GlobalToLocal(&where);
	AddPoint(stroke, where);
	PenSize(2, 2);
	MoveTo(where.h, where.v);
	last = where;
	while (StillDown()) {
		GetMouse(&where);
		if (where.h == last.h && where.v == last.v)
			continue;
		LineTo(where.h, where.v);
		AddPoint(stroke, where);
		last = where;
	}
	PenNormal();
	if (PtrAndHand(&stroke, gStrokes, sizeof(StrokeHandle)) != noErr) {
		DisposHandle((Handle)stroke);
		SysBeep(1);
	}
	InvalRect(&gWindow->portRect);
}

static void Forget(void)
{
	long	i;

	for (i = 0; i < CountStrokes(); i++)
		DisposHandle((Handle)((StrokeHandle *)*gStrokes)[i]);
	SetHandleSize(gStrokes, 0);
	SetPort(gWindow);
	InvalRect(&gWindow->portRect);
}

static void MouseDown(EventRecord *event)
{
	WindowPtr	window;
	long		size;
	Rect		limits;

	switch (FindWindow(event->where, &window)) {
	case inDrag:
		DragWindow(window, event->where, &qd.screenBits.bounds);
		break;
	case inGrow:
		SetRect(&limits, 160, 100, 2000, 2000);
		size = GrowWindow(window, event->where, &limits);
		if (size != 0) {
			SizeWindow(window, LoWord(size), HiWord(size), true);
			SetPort(window);
			InvalRect(&window->portRect);
		}
		break;
	case inGoAway:
		if (TrackGoAway(window, event->where))
			gDone = true;
		break;
	case inContent:
		if (window != FrontWindow())
			SelectWindow(window);
		else {
			SetPort(window);
			Doodle(event->where);
		}
		break;
	}
}

static void DoEvent(EventRecord *event)
{
	WindowPtr	window;
	char		key;

	switch (event->what) {
	case mouseDown:
		MouseDown(event);
		break;
	case keyDown:
		key = event->message & charCodeMask;
		if ((event->modifiers & cmdKey) && key == 'q')
			gDone = true;
		else if (key == 27 || key == 8)
			Forget();
		break;
	case updateEvt:
		window = (WindowPtr)event->message;
		BeginUpdate(window);
		SetPort(window);
		DrawAll();
		EndUpdate(window);
		break;
	case activateEvt:
		SetPort((WindowPtr)event->message);
		DrawGrowBox((WindowPtr)event->message);
		break;
	}
}

int main(void)							/* here: void main(void) */
{
	EventRecord	event;

	if (HostKitStart(nil) != noErr)		/* here: new, with the next line */
		return 1;
	InitGraf(&qd.thePort);
	InitFonts();
	InitWindows();
	InitCursor();

	gStrokes = NewHandle(0);
	gWindow = GetNewWindow(kWindowID, nil, (WindowPtr)-1L);
	if (gStrokes != nil && gWindow != nil) {
		SetWTitle(gWindow, "\pDoodle");
		ShowWindow(gWindow);
		while (!gDone)
			if (WaitNextEvent(everyEvent, &event, kSleep, nil))
				DoEvent(&event);
	}
	HostKitStop();						/* here: new, with the next line */
	return 0;
}
