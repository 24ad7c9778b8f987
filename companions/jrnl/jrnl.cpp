#include <jrnl/jrnl.h>

#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <mutex>

namespace {

std::mutex journalMutex;
JRNL_Receiver receiver = nullptr;
void *receiverContext = nullptr;

struct Destination {
    FILE *file = nullptr;
    int highestLevel = INT_MAX;
};

// Opened at the first record and kept: a journal lasts as long as its process.
const Destination &destination()
{
    static const Destination opened = [] {
        Destination result;
        const char *path = getenv("JRNL_FILE");
        const char *level = getenv("JRNL_LEVEL");
        if (path && *path)
            result.file = strcmp(path, "-") == 0 ? stderr : fopen(path, "a");
        if (level && *level)
            result.highestLevel = atoi(level);
        return result;
    }();
    return opened;
}

bool isWanted(int level)
{
    return receiver || (destination().file && level <= destination().highestLevel);
}

// With the mutex held.
void write(int level, const char *channel, const char *subject, const char *text)
{
    if (receiver)
        receiver(level, channel, subject, text, receiverContext);
    const Destination &to = destination();
    if (!to.file || level > to.highestLevel)
        return;
    char when[32] = "";
    time_t now = time(nullptr);
    if (const tm *parts = localtime(&now))
        strftime(when, sizeof when, "%Y-%m-%d %H:%M:%S", parts);
    fprintf(to.file, "%s\t%d\t%s\t%s\t%s\n", when, level, channel, subject, text);
    fflush(to.file);
}

const char *orEmpty(const char *text)
{
    return text ? text : "";
}

} // namespace

void JRNL_Log(int level, const char *channel, const char *subject, const char *text)
{
    std::lock_guard lock(journalMutex);
    if (isWanted(level))
        write(level, orEmpty(channel), orEmpty(subject), orEmpty(text));
}

void JRNL_sprintf(int level, const char *channel, const char *subject, const char *format, ...)
{
    std::lock_guard lock(journalMutex);
    if (!isWanted(level))
        return;
    // Longer texts are cut: a record needs no memory, since it is often made when memory is short.
    char text[2048] = "";
    va_list arguments;
    va_start(arguments, format);
    if (format)
        vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    write(level, orEmpty(channel), orEmpty(subject), text);
}

void JRNL_SetReceiver(JRNL_Receiver newReceiver, void *context)
{
    std::lock_guard lock(journalMutex);
    receiver = newReceiver;
    receiverContext = context;
}
