/* PSTRING in C. */
#include <hostkit/pascal_literals.h>

static const unsigned char *atFileScope[] = {PSTRING_AT_FILE_SCOPE(""), PSTRING_AT_FILE_SCOPE("\245 two")};

const unsigned char *pascalStringInC(int which);
const unsigned char *pascalStringInC(int which)
{
    const unsigned char *string = atFileScope[which != 0];
    if (which > 1) {
        string = PSTRING("In a block");
    }
    return string;
}
