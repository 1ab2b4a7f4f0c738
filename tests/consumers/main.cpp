// What a program of someone else does first with the libraries: a reading kept
// under a key, a localised text from a resource bundle, a question to the desktop library.
#include <cstdio>
#include <memory>
#include <string>

#include <Fennick/DateUtilities.h>
#include <Fennick/datastore/DataStore.h>
#include <Fennick/datastore/NumberIdentifier.h>
#include <Lorrel/apps/Apps.h>
#include <Lorrel/system/MacDevices.h>

int main()
{
    Fennick::DataStore store;
    store.add(std::make_shared<Fennick::NumberIdentifier>("load"));
    store.set(42, "load");
    const bool hasCatalogue = !Lorrel::MacDevices::allDevices().empty();
    std::printf("%s %s %d %d\n", store.stringFor("load").c_str(), Fennick::DateUtilities::clockText(61).c_str(),
                hasCatalogue, Lorrel::Apps::isRunning("no.such.application"));
    return hasCatalogue ? 0 : 1;
}
