// Entry point of the player; start-up is wired in by the agent layer.
int main() {
    return 0;
}
