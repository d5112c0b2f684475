// HOST: prints the top-level classes of that server, as a program does that has nothing but the client
// library.

#include <Pegasus/Client/CIMClient.h>

#include <iostream>

int main(int, char** arguments) {
    try {
        Pegasus::CIMClient client;
        client.connect(arguments[1], 5988, "", "");
        const Pegasus::Array<Pegasus::CIMName> names =
            client.enumerateClassNames(Pegasus::CIMNamespaceName("root/cimv2"), Pegasus::CIMName(), false);
        for (Pegasus::Uint32 index = 0; index < names.size(); ++index) {
            std::cout << names[index].getString().getCString() << std::endl;
        }
        return 0;
    } catch (const Pegasus::Exception& error) {
        std::cerr << error.getMessage().getCString() << std::endl;
        return 1;
    }
}
